#include "presets/video/variable_bitrate/KVMP4Preset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/formats/audio_track/KVAACFormat.h"
#include "presets/formats/audio_track/KVMP3Format.h"
#include "presets/formats/video_track/static_bitrate/KVMPEG4Format.h"
#include "presets/settings/KVBooleanOption.h"
#include "tasks/KVHardwareAcceleration.h"

KVAudioFormatClass KVMP4Preset::audioFormatClass() const {
    return usesH264() ? KVAudioFormatClass::of<KVAACFormat>() : KVAudioFormatClass::of<KVMP3Format>();
}

KVVideoFormatClass KVMP4Preset::videoFormatClass() const {
    return usesH264() ? KVVideoFormatClass::of<KVH264Format>() : KVVideoFormatClass::of<KVMPEG4Format>();
}

std::unique_ptr<KVVideoFormat> KVMP4Preset::videoFormat() const {
    auto format = KVSizeRestrictedVideoPreset::videoFormat();
    if (auto *h264 = dynamic_cast<KVH264Format *>(format.get())) {
        h264->bitrateMultiplier = bitrateMultiplier();
        h264->isHardwareAccelerationEnabled = useHardwareAcceleration;
        h264->level = level();
        h264->qmin = qmin();
        h264->qmax = qmax();
        h264->profile = profile();
    }
    return format;
}

QString KVMP4Preset::defaultName() const {
    return "MP4";
}

std::optional<QString> KVMP4Preset::pathExtension() const {
    return "mp4";
}

std::optional<QString> KVMP4Preset::fileType() const {
    return "mp4";
}

QString KVMP4Preset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized(usesH264() ? "Video: H.264\nAudio: AAC"
                                                      : "Video: MPEG4\nAudio: MP3");
}

bool KVMP4Preset::canCopySubtitleTrack(const KVSubtitleTrack &) const {
    return false;
}

QString KVMP4Preset::defaultSubtitleFormat() const {
    return "mov_text";
}

const KVPresetFields<KVMP4Preset> &KVMP4Preset::fields() {
    static const auto fields =
        KVPresetFields<KVMP4Preset>()
            .boolean("ZRUsesH264", &KVMP4Preset::usesH264, &KVMP4Preset::setUsesH264, true)
            .boolean("KVUsesHarwdareAcceleration", &KVMP4Preset::useHardwareAcceleration, true);
    return fields;
}

KVOptionList KVMP4Preset::_additionalOptions() {
    KVOptionList options = KVSizeRestrictedVideoPreset::_additionalOptions();
    if (dynamic_cast<KVH264Format *>(videoFormat().get()) &&
        KVHardwareAcceleration::shared().isHardwareAccelerationAvailable())
        options.push_back(std::make_shared<KVBooleanOption<KVMP4Preset>>(
            KVLocalizationCenter::localized("Use Hardware Acceleration"), _shared<KVMP4Preset>(),
            &KVMP4Preset::useHardwareAcceleration));
    return options;
}
