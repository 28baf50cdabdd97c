#include "presets/video/other/KVVolumeAdjustingPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVText.h"
#include "presets/settings/KVNumericOption.h"
#include "presets/settings/KVSettingsWithOptions.h"
#include "video_info/media_file/KVVideoFile.h"

namespace {

/// The encoder's quality, by the kind of the first audio track.
QStringList qualityArguments(const KVAudioFile &file) {
    const QString format = file.audioTracks.isEmpty() ? QString() : file.audioTracks.first().format;
    if (format == "aac") return {"-aq", "100", "-strict", "-2"};
    if (format == "mp3") return {"-aq", "2"};
    return {"-aq", "100"};
}

} // namespace

QStringList KVVolumeAdjustingPreset::taskArguments(const std::shared_ptr<KVMediaFile> &file,
                                                   const QUrl &outputFile) const {
    const auto audio = std::dynamic_pointer_cast<KVAudioFile>(file);
    if (!audio) return {};
    const auto video = std::dynamic_pointer_cast<KVVideoFile>(file);
    const QString decibels = KVText::fixed(static_cast<double>(numberOfDecibelsToAdd) / 100, 2);

    QStringList arguments{"-y", "-i", audio->url().toLocalFile()};
    if (video && !video->videoTracks.isEmpty())
        arguments += {"-c:v", "copy"};
    else
        arguments << "-vn";
    arguments += {"-af", "volume=+" + decibels + "dB", "-bufsize", "8000k"};
    arguments += qualityArguments(*audio);
    return arguments +
           QStringList{"-max_muxing_queue_size", "40000", "-map_metadata", "0", outputFile.toLocalFile()};
}

QString KVVolumeAdjustingPreset::defaultName() const {
    return KVLocalizationCenter::localized("Volume Adjustment");
}

QString KVVolumeAdjustingPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Audio and Video: Audio Adjustment");
}

const KVPresetFields<KVVolumeAdjustingPreset> &KVVolumeAdjustingPreset::fields() {
    static const auto fields = KVPresetFields<KVVolumeAdjustingPreset>().integer(
        "ZRAudioVolumeDecibelsToAdd", &KVVolumeAdjustingPreset::numberOfDecibelsToAdd, 1);
    return fields;
}

std::shared_ptr<KVSettingsBase> KVVolumeAdjustingPreset::settings() {
    using Pane = KVSettingsWithOptions<KVVolumeAdjustingPreset>;
    const auto edited = _shared<KVVolumeAdjustingPreset>();
    return std::make_shared<Pane>(edited,
                                  Pane::Options{std::make_shared<KVNumericOption<KVVolumeAdjustingPreset>>(
                                      KVLocalizationCenter::localized("Add (0.1 dB):"), edited, 1, 100,
                                      &KVVolumeAdjustingPreset::numberOfDecibelsToAdd)});
}
