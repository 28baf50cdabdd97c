#include "presets/video/other/KVWebOptimization.h"

#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVUserQuestions.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QFileInfo>

namespace {

/// The first file decides, as it is the one that is converted.
bool isMP4(const KVMediaFileList &files) {
    return QFileInfo(files.first()->url().toLocalFile()).suffix().toLower() == "mp4";
}

} // namespace

QString KVWebOptimization::defaultName() const {
    return KVLocalizationCenter::localized("Web Optimization");
}

QString KVWebOptimization::localizedFormatDescription() const {
    return KVLocalizationCenter::localized(
        "This preset moves the MooV atom in the movies to the front. Works only on MP4 files.");
}

QStringList KVWebOptimization::taskArguments(const std::shared_ptr<KVMediaFile> &file,
                                             const QUrl &outputFile) const {
    if (!std::dynamic_pointer_cast<KVVideoFile>(file)) return {};
    // clang-format off
    return {"-i", file->url().toLocalFile(), "-y", "-movflags", "+faststart", "-c:v", "copy", "-c:a:0", "copy",
            "-map_chapters", "0", "-map_metadata", "0", "-max_muxing_queue_size", "40000",
            outputFile.toLocalFile()};
    // clang-format on
}

std::optional<QUrl> KVWebOptimization::outputURLForFiles(const KVMediaFileList &files,
                                                         const std::optional<QUrl> &destination) const {
    if (!isMP4(files)) return std::nullopt;
    return KVVideoPreset::outputURLForFiles(files, destination);
}

std::optional<KVPresetTask>
KVWebOptimization::taskForConversionOfFiles(const KVMediaFileList &files,
                                            const std::optional<QUrl> &destination) const {
    if (isMP4(files)) return KVVideoPreset::taskForConversionOfFiles(files, destination);

    KVAlert alert;
    alert.messageText = KVLocalizationCenter::localized("Web Optimization preset works only on MP4 files.");
    alert.informativeText =
        KVLocalizationCenter::localized("This preset moves the MooV atom to the front of the file.");
    alert.buttons = {KVLocalizationCenter::localized("OK")};
    KVUserQuestion::runModalOnMainThread(alert);
    return std::nullopt;
}
