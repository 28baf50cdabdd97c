#include "presets/video/base/KVSubtitlesFile.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "platform/KVFileManager.h"
#include "util/KVTempDirectory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <memory>
#include <mutex>
#include <utility>

namespace {

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

/// A converter that stops at what it cannot convert instead of putting a mark in its place.
Converter strictConverter(const QString &encoding) {
    UErrorCode status = U_ZERO_ERROR;
    // Without a name the library takes the system's encoding.
    Converter converter(encoding.isEmpty() ? nullptr : ucnv_open(encoding.toLatin1().constData(), &status),
                        &ucnv_close);
    if (converter)
        ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    return U_SUCCESS(status) ? std::move(converter) : Converter(nullptr, &ucnv_close);
}

/// `isWhole` is false if the text goes on after `bytes`.
std::optional<QString> decodedPart(const QByteArray &bytes, const QString &encoding, bool isWhole) {
    const Converter converter = strictConverter(encoding);
    if (!converter) return std::nullopt;
    // No encoding makes more than two units of a byte, and a state of its own may add a few.
    QString text(2 * bytes.size() + 16, Qt::Uninitialized);
    auto *const begin = reinterpret_cast<UChar *>(text.data());
    UChar *target = begin;
    const char *source = bytes.constData();
    UErrorCode status = U_ZERO_ERROR;
    ucnv_toUnicode(converter.get(), &target, begin + text.size(), &source, source + bytes.size(), nullptr,
                   UBool(isWhole), &status);
    if (U_FAILURE(status)) return std::nullopt;
    text.truncate(target - begin);
    return text;
}

struct Observer {
    std::mutex mutex;
    KVSubtitlesFile::FailureObserver tell;
};

Observer &observer() {
    static Observer observer;
    return observer;
}

thread_local KVSubtitlesFile::FailureCollector *collectorOfThread = nullptr;

std::optional<QString> failure(const QUrl &url, const QString &reason) {
    KVLog("Failed to read subtitles file at URL " + url.toString() + ": " + reason);
    if (collectorOfThread) collectorOfThread->add(url, reason);
    const std::scoped_lock lock(observer().mutex);
    if (observer().tell) observer().tell(url, reason);
    return std::nullopt;
}

} // namespace

std::optional<QString> KVSubtitlesFile::decoded(const QByteArray &bytes, const QString &encoding) {
    return decodedPart(bytes, encoding, true);
}

std::optional<QString> KVSubtitlesFile::decodedBeginning(const QByteArray &bytes, const QString &encoding) {
    return decodedPart(bytes, encoding, false);
}

std::optional<QString> KVSubtitlesFile::text(const QUrl &url, const QString &encoding) {
    QFile source(url.toLocalFile());
    if (KVFileManager::isSpecialFile(url) || !source.open(QIODevice::ReadOnly)) return std::nullopt;
    return decoded(source.readAll(), encoding);
}

bool KVSubtitlesFile::isBlank(QString text) {
    return text.remove(QChar::ByteOrderMark).trimmed().isEmpty();
}

void KVSubtitlesFile::setFailureObserver(FailureObserver tell) {
    const std::scoped_lock lock(observer().mutex);
    observer().tell = std::move(tell);
}

KVSubtitlesFile::FailureCollector::FailureCollector()
    : _previous(std::exchange(collectorOfThread, this)) {}

KVSubtitlesFile::FailureCollector::~FailureCollector() {
    collectorOfThread = _previous;
}

void KVSubtitlesFile::FailureCollector::add(const QUrl &url, const QString &reason) {
    _warnings +=
        KVLocalizationCenter::localized("The subtitles %@ were left out: %@", {url.toLocalFile(), reason});
}

std::optional<QString> KVSubtitlesFile::convertedToUTF8(const QUrl &url, const QString &encoding) {
    if (KVFileManager::isSpecialFile(url))
        return failure(url, "it is not a regular file"); // may wait for ever
    QFile source(url.toLocalFile());
    if (!source.open(QIODevice::ReadOnly)) return failure(url, source.errorString());
    const QByteArray bytes = source.readAll();
    if (source.error() != QFile::NoError) return failure(url, source.errorString());
    const auto text = decoded(bytes, encoding);
    if (!text) return failure(url, "it is not in the encoding " + encoding);
    if (isBlank(*text)) return failure(url, "it is empty"); // the tool would fail on such a file

    const QString extension = QFileInfo(source.fileName()).suffix();
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    const QString folder = KVTempDirectoryPath();
    QSaveFile target(QDir(folder).filePath(extension.isEmpty() ? name : name + "." + extension));
    const QByteArray content = text->toUtf8();
    // What is short stays in a buffer, and committing would pass over that it finds no room.
    if (!target.open(QIODevice::WriteOnly) || target.write(content) != content.size() || !target.flush() ||
        !target.commit())
        return failure(url, "it cannot be written into " + folder + ", which may be full");
    return target.fileName();
}
