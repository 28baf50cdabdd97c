#include "presets/formats/audio_track/KVBitrateBasedAudioFormat.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "presets/audio/base/KVBitrateAudioPreset.h"
#include "presets/formats/audio_track/KVNearestValue.h"
#include "presets/settings/KVBooleanOption.h"
#include "presets/settings/KVNumericOption.h"
#include "presets/video/base/KVVideoPreset.h"
#include "video_info/media_file/KVAudioFile.h"

QStringList KVBitrateBasedAudioFormat::arguments(const std::shared_ptr<KVMediaFile> &file,
                                                 KVTrackQualitySetting quality) const {
    return KVAudioFormat::arguments(file, quality) +
           bitrateArguments(*std::dynamic_pointer_cast<KVAudioFile>(file), quality);
}

std::vector<std::shared_ptr<KVOptionRoot>>
KVBitrateBasedAudioFormat::options(const std::shared_ptr<KVPreset> &preset) const {
    KVOptionList options = KVAudioFormat::options(preset);
    const auto bitratePreset = std::dynamic_pointer_cast<KVBitrateAudioPreset>(preset);
    if (!bitratePreset) return options;

    options.push_back(std::make_shared<KVNumericOption<KVBitrateAudioPreset>>(
        KVLocalizationCenter::localized("Bitrate:"), bitratePreset, 32, 1024,
        &KVBitrateAudioPreset::audioBitrate));
    if (const auto videoPreset = std::dynamic_pointer_cast<KVVideoPreset>(preset);
        videoPreset && _offersStereoTrack())
        options.push_back(std::make_shared<KVBooleanOption<KVVideoPreset>>(
            KVLocalizationCenter::localized("Include stereo track aside surround track when possible"),
            videoPreset, &KVVideoPreset::includeStereoTrack));
    return options;
}

QStringList KVBitrateBasedAudioFormat::bitrateArguments(const KVAudioFile &file,
                                                        KVTrackQualitySetting quality) const {
    return {_specified("-b:a"), bitrateFor(file, quality)};
}

QString KVBitrateBasedAudioFormat::bitrateFor(const KVAudioFile &file, KVTrackQualitySetting quality) const {
    if (!file.selectedAudioTrack) return "0";

    qint64 value = _bitrateForQuality(quality, file.selectedAudioTrack->bitrate);
    if (maxBitrate != 0) value = std::min(value, maxBitrate);
    if (const auto legal = _legalBitrates(); !legal.isEmpty()) value = KVNearestValue(value, legal);
    return QString::number(value) + "k";
}

qint64 KVBitrateBasedAudioFormat::_bitrateForQuality(KVTrackQualitySetting quality,
                                                     qint64 sourceBitrate) const {
    switch (quality) {
    case KVTrackQualitySetting::low:
        return 64;
    case KVTrackQualitySetting::medium:
        return 128;
    case KVTrackQualitySetting::high:
        return 256;
    case KVTrackQualitySetting::keepOriginal:
        return sourceBitrate;
    case KVTrackQualitySetting::custom:
        if (bitrate != 0) return bitrate;
        KVLog("0 bitrate.");
        return defaultBitrate;
    case KVTrackQualitySetting::copy:
        break;
    }
    KVCopyTrackFatalError();
}
