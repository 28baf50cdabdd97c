#include "core/KVHistoryCenter.h"

#include "kvcore/KVBookmark.h"
#include "kvcore/KVFatalError.h"
#include "platform/KVFileManager.h"
#include "util/KVPreferenceKeys.h"

#include <algorithm>

namespace {

const QString typeKey = "ZRHistoryItemType";
const QString urlDataKey = "ZRHistoryItemURLData";
const QString dateKey = "ZRHistoryItemDate";

std::optional<QUrl> urlFromStored(const QVariant &stored) {
    if (stored.typeId() == QMetaType::QByteArray) return KVBookmark::resolve(stored.toByteArray());
    if (stored.typeId() != QMetaType::QString) return std::nullopt;
    const QString text = stored.toString();
    if (!text.startsWith("file://")) return QUrl::fromLocalFile(text);
    const QUrl url(text, QUrl::StrictMode);
    if (!url.isValid()) KVFatalError("The history holds an invalid URL: " + text);
    return url;
}

QList<KVHistoryItem> itemsFromStored(const QVariant &stored) {
    QList<KVHistoryItem> items;
    for (const QVariant &entry : stored.toList())
        if (const auto item = KVHistoryItem::fromDictionary(entry.toMap())) items += *item;
    return items;
}

QHash<KVHistoryItem, int> counted(const QList<KVHistoryItem> &items) {
    QHash<KVHistoryItem, int> counts;
    for (const auto &item : items)
        ++counts[item];
    return counts;
}

} // namespace

// An entry

std::optional<KVHistoryItem> KVHistoryItem::fromDictionary(const QVariantMap &dictionary) {
    const int rawType = dictionary.value(typeKey).toInt();
    const auto url = urlFromStored(dictionary.value(urlDataKey));
    const QVariant date = dictionary.value(dateKey);
    if (rawType < 1 || rawType > 4 || !url || date.typeId() != QMetaType::QDateTime) return std::nullopt;
    return KVHistoryItem{
        .date = date.toDateTime(), .type = static_cast<KVMediaFileType>(rawType), .url = *url};
}

QVariantMap KVHistoryItem::dictionaryRepresentation() const {
    const auto bookmark = KVBookmark::data(url);
    return {{typeKey, static_cast<int>(type)},
            {urlDataKey, bookmark ? QVariant(*bookmark) : QVariant(url.toLocalFile())},
            {dateKey, date}};
}

QString KVHistoryItem::description() const {
    return QString("{\n\tType: %1\n\tDate: %2\n\tFile Path: %3\n}")
        .arg(KVMediaFileTypes::localizedName(type), date.toString(Qt::ISODate),
             url.isLocalFile() ? url.toLocalFile() : "nil");
}

size_t qHash(const KVHistoryItem &item, size_t seed) {
    return qHashMulti(seed, item.date, static_cast<int>(item.type), item.url);
}

// The list

KVHistoryCenter &KVHistoryCenter::shared() {
    // Never destroyed: a worker that is still alive when the process exits may add a file.
    static KVHistoryCenter &center = *new KVHistoryCenter;
    return center;
}

KVHistoryCenter::KVHistoryCenter() {
    const auto stored = itemsFromStored(KVPreferences::shared().value(KVPreferenceKeys::HistoryCenterItems));
    _ownStoredItems = counted(stored);
    for (const auto &item : stored)
        if (KVFileManager::isReachable(item.url)) _items += item;
}

QList<KVHistoryItem> KVHistoryCenter::historyItems() const {
    const std::scoped_lock lock(_lock);
    return _items;
}

void KVHistoryCenter::addFile(const QUrl &url, KVMediaFileType type) {
    const std::scoped_lock lock(_lock);
    const KVHistoryChange change{.kind = KVHistoryChange::Kind::inserted, .first = _items.size(), .count = 1};
    _announce(change, true);
    _items += KVHistoryItem{.date = QDateTime::currentDateTimeUtc(), .type = type, .url = url};
    _announce(change, false);
    save();
}

void KVHistoryCenter::clear() {
    const std::scoped_lock lock(_lock);
    const KVHistoryChange change{.kind = KVHistoryChange::Kind::removed, .first = 0, .count = _items.size()};
    _announce(change, true);
    _items.clear();
    _wasCleared = true;
    _announce(change, false);
}

void KVHistoryCenter::save() {
    const std::scoped_lock lock(_lock);
    const auto storedForm = [](const KVHistoryItem &item) {
        return KVHistoryItem::fromDictionary(item.dictionaryRepresentation()).value_or(item);
    };
    QList<KVHistoryItem> own;
    std::ranges::transform(_items, std::back_inserter(own), storedForm);
    KVPreferences::shared().update(KVPreferenceKeys::HistoryCenterItems, [&](const QVariant &current) {
        QList<KVHistoryItem> all;
        std::ranges::merge(_itemsOfOthers(current), own, std::back_inserter(all), {}, &KVHistoryItem::date,
                           &KVHistoryItem::date);
        QVariantList stored;
        for (const auto &item : all)
            stored += item.dictionaryRepresentation();
        return QVariant(stored);
    });
    _ownStoredItems = counted(own);
    _wasCleared = false;
}

/// What is stored and was neither loaded nor written by this process: another one has appended it.
QList<KVHistoryItem> KVHistoryCenter::_itemsOfOthers(const QVariant &stored) const {
    if (_wasCleared) return {};
    auto items = itemsFromStored(stored);
    auto own = _ownStoredItems;
    items.removeIf([&](const auto &item) { return own[item]-- > 0; });
    return items;
}

void KVHistoryCenter::setObserver(std::function<void(const KVHistoryChange &change, bool isPrior)> observer) {
    const std::scoped_lock lock(_lock);
    _observer = std::move(observer);
}

void KVHistoryCenter::_announce(const KVHistoryChange &change, bool isPrior) const {
    if (_observer) _observer(change, isPrior);
}
