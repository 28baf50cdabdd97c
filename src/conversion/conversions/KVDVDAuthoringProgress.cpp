#include "conversion/conversions/KVDVDAuthoringProgress.h"

#include "kvcore/KVLog.h"
#include "kvcore/KVText.h"
#include "platform/KVFileManager.h"

#include <algorithm>

namespace {

const QString KVDVDAuthorToolFirstPassOutput = "STAT: VOBU";
const QString KVDVDAuthorToolSecondPassOutput = "STAT: fixing VOBU";
const QString KVDVDAuthorToolProcessingFileOutput = "STAT: Processing ";

/// The number behind the first `separator`; nothing without one.
std::optional<double> numberBehind(const QString &separator, const QString &chunk) {
    const auto parts = chunk.split(separator);
    if (parts.size() < 2) return std::nullopt;
    return KVText::doubleValue(parts[1]);
}

} // namespace

std::optional<double> KVDVDAuthoringProgress::value(const QString &chunk) {
    if (chunk.startsWith(KVDVDAuthorToolFirstPassOutput)) {
        const auto megabytes = numberBehind(" at ", chunk);
        if (!megabytes || currentFileSize == 0) return megabytes ? std::optional(0.0) : std::nullopt;
        return (*megabytes / static_cast<double>(currentFileSize) + currentFileIndex) * 0.5;
    }
    if (chunk.startsWith(KVDVDAuthorToolSecondPassOutput)) {
        const auto percent = numberBehind(", ", chunk);
        if (!percent) return std::nullopt;
        return *percent / 100 * 0.5 + 0.5;
    }
    if (const auto found = chunk.indexOf(KVDVDAuthorToolProcessingFileOutput); found >= 0) {
        const QString rest = chunk.sliced(found + KVDVDAuthorToolProcessingFileOutput.size());
        const QString path = rest.left(std::max<qsizetype>(rest.size() - 4, 0)); // without "...\n"
        KVLog("Now processing " + path);
        constexpr qint64 megabyte = 1048576;
        currentFileSize = KVFileManager::fileSize(QUrl::fromLocalFile(path)) / megabyte;
        ++currentFileIndex;
    }
    return std::nullopt;
}
