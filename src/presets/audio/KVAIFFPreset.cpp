#include "presets/audio/KVAIFFPreset.h"

#include "presets/audio/KVFixedFrequencyOptions.h"
#include "presets/settings/KVAudioTrackFormatSettings.h"

const KVPresetFields<KVAIFFPreset> &KVAIFFPreset::fields() {
    static const auto fields =
        KVPresetFields<KVAIFFPreset>().integer("KVSampleBits", &KVAIFFPreset::sampleBits, 24);
    return fields;
}

std::shared_ptr<KVSettingsBase> KVAIFFPreset::settings() {
    const auto preset = _shared<KVAIFFPreset>();
    auto settings = std::make_shared<KVAudioTrackFormatSettings<KVAIFFPreset>>(preset);
    settings->appendedOptions = {KVFixedFrequencyOptions::frequency(preset),
                                 KVFixedFrequencyOptions::sampleBits(preset, {16, 24, 32})};
    return settings;
}
