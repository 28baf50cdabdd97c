#include "presets/video/other/KVRemuxPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/settings/KVMultipleValueOption.h"
#include "presets/settings/KVSettingsWithOptions.h"
#include "video_info/media_file/KVVideoFile.h"

#include <algorithm>
#include <array>

namespace {

struct RemuxContainer {
    const char *label;
    const char *format;
    const char *pathExtension;
};

constexpr std::array remuxContainers{
    RemuxContainer{"AVI", "avi", "avi"},
    RemuxContainer{"FLV", "flv", "flv"},
    RemuxContainer{"M4V", "m4v", "m4v"},
    RemuxContainer{"MKV", "matroska", "mkv"},
    RemuxContainer{"MOV", "mov", "mov"},
    RemuxContainer{"MP4", "mp4", "mp4"},
    RemuxContainer{"MP4 (iPod, iPhone & AppleTV)", "ipod", "m4v"},
};

} // namespace

QStringList KVRemuxPreset::taskArguments(const std::shared_ptr<KVMediaFile> &file,
                                         const QUrl &outputFile) const {
    const auto video = std::dynamic_pointer_cast<KVVideoFile>(file);
    if (!video) return {};
    QStringList arguments{"-y", "-i", video->url().toLocalFile(), "-c:v", "copy", "-c:a:0", "copy"};
    const auto &track = video->selectedVideoTrack;
    if (track && track->format.contains("h264", Qt::CaseInsensitive))
        arguments += {"-bsf:v", "h264_mp4toannexb"};
    return arguments + _containerArguments(*video, outputFile);
}

QStringList KVRemuxPreset::warningsForFiles(const KVMediaFileList &files) const {
    const auto video = files.isEmpty() ? nullptr : std::dynamic_pointer_cast<KVVideoFile>(files.first());
    if (!video || !_losesRotation(*video)) return {};
    return {KVLocalizationCenter::localized(
        "The rotation of the video is lost, because %@ files cannot hold it.", {pathExtension()->toUpper()})};
}

QStringList KVRemuxPreset::_containerArguments(const KVVideoFile &file, const QUrl &outputFile) const {
    QStringList arguments{"-sn", "-f", format};
    if (file.audioTracks.size() > 1 && file.selectedVideoTrack && file.selectedAudioTrack)
        for (const qint64 track :
             {file.selectedVideoTrack->trackNumber, file.selectedAudioTrack->trackNumber})
            arguments += {"-map", "0:" + QString::number(track)};
    return arguments + closingArguments(outputFile);
}

QString KVRemuxPreset::defaultName() const {
    return KVLocalizationCenter::localized("Remux");
}

QString KVRemuxPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("This preset only changes the video's container and does no "
                                           "transcoding.\n\nCurrent format selected: %@",
                                           {format});
}

std::optional<QString> KVRemuxPreset::pathExtension() const {
    const auto container = std::ranges::find_if(remuxContainers, [&](const RemuxContainer &candidate) {
        return format == QLatin1String(candidate.format);
    });
    return container == remuxContainers.end() ? std::nullopt
                                              : std::optional(QString(container->pathExtension));
}

bool KVRemuxPreset::supportsSubtitleMuxing() const {
    return format == "mp4" || format == "m4v" || format == "matroska";
}

QString KVRemuxPreset::defaultSubtitleFormat() const {
    if (!supportsSubtitleMuxing()) return KVVideoPreset::defaultSubtitleFormat();
    return format == "matroska" ? "ass" : "mov_text";
}

const KVPresetFields<KVRemuxPreset> &KVRemuxPreset::fields() {
    static const auto fields =
        KVPresetFields<KVRemuxPreset>().text("ZRRemuxFormat", &KVRemuxPreset::format, "avi");
    return fields;
}

std::shared_ptr<KVSettingsBase> KVRemuxPreset::settings() {
    using Pane = KVSettingsWithOptions<KVRemuxPreset>;
    return std::make_shared<Pane>(_shared<KVRemuxPreset>(), Pane::Options{_formatOption()});
}

std::shared_ptr<KVOptionBase<KVRemuxPreset>> KVRemuxPreset::_formatOption() {
    using Formats = KVMultipleValueOption<KVRemuxPreset, QString>;
    Formats::Values values;
    for (const RemuxContainer &container : remuxContainers)
        values.push_back({KVLocalizationCenter::localized(container.label), container.format});
    return std::make_shared<Formats>(KVLocalizationCenter::localized("File Format:"),
                                     _shared<KVRemuxPreset>(), &KVRemuxPreset::format, values);
}
