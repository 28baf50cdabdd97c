#include "presets/audio/base/KVFixedFrequencyPreset.h"

#include "presets/formats/audio_track/KVFixedFrequencyAudioFormat.h"

std::unique_ptr<KVAudioFormat> KVFixedFrequencyPreset::audioFormat() const {
    auto format = KVAudioPreset::audioFormat();
    auto &lossless = static_cast<KVFixedFrequencyAudioFormat &>(*format);
    lossless.frequency = frequency;
    lossless.sampleBits = sampleBits;
    return format;
}

const KVPresetFields<KVFixedFrequencyPreset> &KVFixedFrequencyPreset::fields() {
    static const auto fields = KVPresetFields<KVFixedFrequencyPreset>().integer(
        "KVFrequency", &KVFixedFrequencyPreset::frequency, 44100);
    return fields;
}
