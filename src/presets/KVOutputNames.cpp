#include "presets/KVOutputNames.h"

#include "kvcore/KVBookmark.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVText.h"
#include "platform/KVFileManager.h"
#include "util/KVPreferenceKeys.h"

namespace {

/// Where the first file goes before any collision is looked at.
std::optional<QUrl> proposedOutput(const QUrl &file, const std::optional<QUrl> &destination,
                                   const QString &extension) {
    using namespace KVFileManager;
    const QString fileName = lastPathComponent(file);
    if (destination && !isDirectory(*destination)) return *destination;
    if (destination) {
        const QUrl output = appendingPathComponent(*destination, deletingPathExtension(fileName));
        return appendingPathExtension(output, extension);
    }
    if (KVPreferences::shared().boolean(KVPreferenceKeys::SaveToSourceFolder, true))
        return appendingPathExtension(appendingPathComponent(file, fileName), extension);

    const auto folder = KVAppScopeBookmarksManager::url(KVPreferenceKeys::FixedDestinationBookmark);
    if (!folder) {
        KVLog("DestinationURL still NULL.");
        return std::nullopt;
    }
    return appendingPathExtension(appendingPathComponent(*folder, fileName), extension);
}

} // namespace

std::optional<KVOutputNames> KVOutputNames::forFiles(const KVMediaFileList &files,
                                                     const std::optional<QUrl> &destination,
                                                     const KVPreset &preset) {
    const QUrl first = files.first()->url();
    const QString extension = preset.pathExtension().value_or(KVFileManager::pathExtension(first));
    const auto proposed = proposedOutput(first, destination, extension);
    if (!proposed) return std::nullopt;
    return KVOutputNames(*proposed, extension, preset.name);
}

KVOutputNames KVOutputNames::inFolder(const QUrl &folder, const QUrl &output) const {
    const QString name = KVFileManager::lastPathComponent(output);
    return {KVFileManager::appendingPathComponent(folder, name), _extension, _presetName};
}

QUrl KVOutputNames::candidate(int attempt) const {
    const QString name = KVFileManager::lastPathComponent(_proposed);
    const QString base = KVFileManager::deletingPathExtension(name);
    QString ending = name.sliced(base.size());
    if (attempt > 0) {
        // A preset's name is free text; a file's name is not.
        QString presetName = _presetName;
        presetName.replace('/', '-');
        ending = "." + KVText::format("%@.%02i", {presetName, attempt - 1});
        if (!_extension.isEmpty()) ending += "." + _extension;
    }
    const QUrl folder = KVFileManager::deletingLastPathComponent(_proposed);
    return KVFileManager::appendingPathComponent(folder, KVFileManager::fittingName(base, ending));
}
