#include "kvcore/KVBookmark.h"

#include <QDateTime>
#include <QDir>

std::optional<QByteArray> KVBookmark::data(const QUrl &url) {
    if (!url.isLocalFile()) return {};
    return url.toEncoded();
}

std::optional<QUrl> KVBookmark::resolve(const QByteArray &data) {
    const QUrl url = QUrl::fromEncoded(data, QUrl::StrictMode);
    if (!url.isLocalFile() || !url.toLocalFile().startsWith('/')) return {};
    return url;
}

namespace {

/// A path or a "file:" URL as a person types it. A relative path means nothing here: the store outlives the
/// working directory.
std::optional<QUrl> typedFile(const QString &text) {
    if (text.startsWith("file:")) return KVBookmark::resolve(text.toUtf8());
    if (text == "~" || text.startsWith("~/")) return QUrl::fromLocalFile(QDir::homePath() + text.sliced(1));
    if (text.startsWith('/')) return QUrl::fromLocalFile(text);
    return {};
}

} // namespace

void KVAppScopeBookmarksManager::setURL(const QUrl &url, const KVPreferences::Key &key) {
    const auto data = KVBookmark::data(url);
    KVPreferences::shared().setValue(data ? QVariant(*data) : QVariant(), key);
}

std::optional<QUrl> KVAppScopeBookmarksManager::url(const KVPreferences::Key &key) {
    const QVariant stored = KVPreferences::shared().value(key);
    if (stored.typeId() == QMetaType::QByteArray) return KVBookmark::resolve(stored.toByteArray());
    if (stored.typeId() == QMetaType::QString) return typedFile(stored.toString());
    return {};
}

void KVAppScopeBookmarksManager::removeURL(const KVPreferences::Key &key) {
    KVPreferences::shared().setValue({}, key);
}
