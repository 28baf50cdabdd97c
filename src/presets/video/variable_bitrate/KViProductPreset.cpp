#include "presets/video/variable_bitrate/KViProductPreset.h"

#include "kvcore/KVLocalizationCenter.h"

std::unique_ptr<KVAudioFormat> KViProductPreset::audioFormat() const {
    auto format = KVMP4Preset::audioFormat();
    const bool isFixedQuality = audioTrackQuality != KVTrackQualitySetting::custom &&
                                audioTrackQuality != KVTrackQualitySetting::copy;
    if (isFixedQuality && !deviceSupportsSurroundSound())
        format->audioChannelsType = KVAudioChannelsType::stereo;
    return format;
}

std::unique_ptr<KVVideoFormat> KViProductPreset::videoFormat() const {
    auto format = KVMP4Preset::videoFormat();
    format->doesNotAllowCustomSize = true;
    return format;
}

QString KViProductPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized(usesH264() ? "Video: H.264 (limited to %i x %i)\nAudio: AAC"
                                                      : "Video: MPEG4 (limited to %i x %i)\nAudio: AAC",
                                           {maxWidth(), maxHeight()});
}

QStringList KViProductPreset::tags() const {
    return KVMP4Preset::tags() << QString::number(maxWidth()) + "x" + QString::number(maxHeight())
                               << (usesH264() ? "H.264" : "MPEG4");
}
