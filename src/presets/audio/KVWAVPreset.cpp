#include "presets/audio/KVWAVPreset.h"

#include "presets/audio/KVFixedFrequencyOptions.h"
#include "presets/formats/audio_track/KVWAVFormat.h"
#include "presets/settings/KVAudioTrackFormatSettings.h"
#include "presets/settings/KVBooleanOption.h"

namespace {

std::shared_ptr<KVOptionBase<KVWAVPreset>> unsignedOption(const std::shared_ptr<KVWAVPreset> &preset) {
    return std::make_shared<KVBooleanOption<KVWAVPreset>>(
        KVLocalizationCenter::localized("Uses unsigned integers"), preset,
        &KVWAVPreset::usesUnsignedIntegers);
}

std::shared_ptr<KVOptionBase<KVWAVPreset>> encodingOption(const std::shared_ptr<KVWAVPreset> &preset) {
    using Option = KVMultipleValueOption<KVWAVPreset, bool>;
    return std::make_shared<Option>(KVLocalizationCenter::localized("Encoding"), preset,
                                    &KVWAVPreset::usesBigEndian,
                                    Option::Values{{KVLocalizationCenter::localized("Little Endian"), false},
                                                   {KVLocalizationCenter::localized("Big Endian"), true}});
}

} // namespace

std::unique_ptr<KVAudioFormat> KVWAVPreset::audioFormat() const {
    auto format = KVFixedFrequencyPreset::audioFormat();
    auto &wav = static_cast<KVWAVFormat &>(*format);
    wav.usesUnsignedIntegers = usesUnsignedIntegers;
    wav.usesBigEndian = usesBigEndian;
    return format;
}

const KVPresetFields<KVWAVPreset> &KVWAVPreset::fields() {
    static const auto fields = KVPresetFields<KVWAVPreset>()
                                   .integer("ZRWAVSampleBits", &KVWAVPreset::sampleBits, 24)
                                   .boolean("ZRWAVUsesBigEndian", &KVWAVPreset::usesBigEndian)
                                   .boolean("ZRWAVUsesUnsignedIntegers", &KVWAVPreset::usesUnsignedIntegers);
    return fields;
}

std::shared_ptr<KVSettingsBase> KVWAVPreset::settings() {
    const auto preset = _shared<KVWAVPreset>();
    auto settings = std::make_shared<KVAudioTrackFormatSettings<KVWAVPreset>>(preset);
    settings->appendedOptions = {KVFixedFrequencyOptions::frequency(preset), unsignedOption(preset),
                                 encodingOption(preset),
                                 KVFixedFrequencyOptions::sampleBits(preset, {16, 24, 32})};
    return settings;
}
