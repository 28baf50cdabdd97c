#include "presets/audio/base/KVBitrateAudioPreset.h"

#include "kvcore/KVFatalError.h"
#include "presets/formats/audio_track/KVBitrateBasedAudioFormat.h"
#include "presets/settings/KVAudioQualityBasedFormatSettings.h"

std::unique_ptr<KVAudioFormat> KVBitrateAudioPreset::audioFormat() const {
    auto format = KVAudioPreset::audioFormat();
    auto *bitrateFormat = dynamic_cast<KVBitrateBasedAudioFormat *>(format.get());
    if (!bitrateFormat) KVFatalError("The audio format of a bitrate preset has no bitrate.");
    bitrateFormat->bitrate = audioBitrate;
    bitrateFormat->defaultBitrate = defaultAudioBitrate();
    return format;
}

const KVPresetFields<KVBitrateAudioPreset> &KVBitrateAudioPreset::fields() {
    static const auto fields =
        KVPresetFields<KVBitrateAudioPreset>().integer("ZRAudioBitrate", &KVBitrateAudioPreset::audioBitrate);
    return fields;
}

std::shared_ptr<KVSettingsBase> KVBitrateAudioPreset::settings() {
    return std::make_shared<KVAudioQualityBasedFormatSettings<KVBitrateAudioPreset>>(
        _shared<KVBitrateAudioPreset>());
}
