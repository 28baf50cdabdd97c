#include "presets/audio/KVAIFFPreset.h"

#include "presets/KVPresetFields.h"
#include "presets/audio/KVFixedFrequencyOptions.h"
#include "presets/formats/audio_track/KVAIFFFormat.h"
#include "presets/settings/KVAudioTrackFormatSettings.h"

namespace {

const KVPresetFields<KVAIFFPreset> &fields() {
    static const auto fields = KVPresetFields<KVAIFFPreset>()
                                   .integer("KVFrequency", &KVAIFFPreset::frequency, 44100)
                                   .integer("KVSampleBits", &KVAIFFPreset::sampleBits, 24);
    return fields;
}

} // namespace

QString KVAIFFPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Audio: AIFF");
}

std::unique_ptr<KVAudioFormat> KVAIFFPreset::audioFormat() const {
    auto format = KVAudioPreset::audioFormat();
    auto &lossless = static_cast<KVAIFFFormat &>(*format);
    lossless.sampleBits = sampleBits;
    lossless.frequency = frequency;
    return format;
}

KVAudioFormatClass KVAIFFPreset::audioFormatClass() const {
    return KVAudioFormatClass::of<KVAIFFFormat>();
}

QVariantMap KVAIFFPreset::dictionaryRepresentation() const {
    QVariantMap dictionary = KVAudioPreset::dictionaryRepresentation();
    fields().save(*this, dictionary);
    return dictionary;
}

void KVAIFFPreset::loadFromDictionary(const QVariantMap &dictionary) {
    KVAudioPreset::loadFromDictionary(dictionary);
    fields().load(*this, dictionary);
}

std::shared_ptr<KVSettingsBase> KVAIFFPreset::settings() {
    const auto preset = _shared<KVAIFFPreset>();
    auto settings = std::make_shared<KVAudioTrackFormatSettings<KVAIFFPreset>>(preset);
    settings->appendedOptions = {KVFixedFrequencyOptions::frequency(preset),
                                 KVFixedFrequencyOptions::sampleBits(preset, {16, 24, 32})};
    return settings;
}
