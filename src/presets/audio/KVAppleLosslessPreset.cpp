#include "presets/audio/KVAppleLosslessPreset.h"

#include "presets/KVPresetFields.h"
#include "presets/audio/KVFixedFrequencyOptions.h"
#include "presets/formats/audio_track/KVAppleLosslessFormat.h"
#include "presets/settings/KVAudioTrackFormatSettings.h"

namespace {

const KVPresetFields<KVAppleLosslessPreset> &fields() {
    static const auto fields = KVPresetFields<KVAppleLosslessPreset>()
                                   .integer("KVFrequency", &KVAppleLosslessPreset::frequency, 44100)
                                   .integer("KVSampleBits", &KVAppleLosslessPreset::sampleBits, 16);
    return fields;
}

} // namespace

QString KVAppleLosslessPreset::defaultName() const {
    return KVLocalizationCenter::localized("Apple Lossless");
}

QString KVAppleLosslessPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Audio: Apple Lossless");
}

std::unique_ptr<KVAudioFormat> KVAppleLosslessPreset::audioFormat() const {
    auto format = KVAudioPreset::audioFormat();
    auto &lossless = static_cast<KVAppleLosslessFormat &>(*format);
    lossless.sampleBits = sampleBits;
    lossless.frequency = frequency;
    return format;
}

KVAudioFormatClass KVAppleLosslessPreset::audioFormatClass() const {
    return KVAudioFormatClass::of<KVAppleLosslessFormat>();
}

QVariantMap KVAppleLosslessPreset::dictionaryRepresentation() const {
    QVariantMap dictionary = KVAudioPreset::dictionaryRepresentation();
    fields().save(*this, dictionary);
    return dictionary;
}

void KVAppleLosslessPreset::loadFromDictionary(const QVariantMap &dictionary) {
    KVAudioPreset::loadFromDictionary(dictionary);
    fields().load(*this, dictionary);
}

std::shared_ptr<KVSettingsBase> KVAppleLosslessPreset::settings() {
    const auto preset = _shared<KVAppleLosslessPreset>();
    auto settings = std::make_shared<KVAudioTrackFormatSettings<KVAppleLosslessPreset>>(preset);
    settings->appendedOptions = {KVFixedFrequencyOptions::frequency(preset),
                                 KVFixedFrequencyOptions::sampleBits(preset, {16, 32})};
    return settings;
}
