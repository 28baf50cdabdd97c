#include "presets/audio/KVAppleLosslessPreset.h"

#include "presets/audio/KVFixedFrequencyOptions.h"
#include "presets/settings/KVAudioTrackFormatSettings.h"

const KVPresetFields<KVAppleLosslessPreset> &KVAppleLosslessPreset::fields() {
    static const auto fields = KVPresetFields<KVAppleLosslessPreset>().integer(
        "KVSampleBits", &KVAppleLosslessPreset::sampleBits, 16);
    return fields;
}

std::shared_ptr<KVSettingsBase> KVAppleLosslessPreset::settings() {
    const auto preset = _shared<KVAppleLosslessPreset>();
    auto settings = std::make_shared<KVAudioTrackFormatSettings<KVAppleLosslessPreset>>(preset);
    settings->appendedOptions = {KVFixedFrequencyOptions::frequency(preset),
                                 KVFixedFrequencyOptions::sampleBits(preset, {16, 32})};
    return settings;
}
