#include "presets/audio/base/KVBitrateAudioPreset.h"

#include "kvcore/KVFatalError.h"
#include "presets/KVPresetFields.h"
#include "presets/formats/audio_track/KVBitrateBasedAudioFormat.h"
#include "presets/settings/KVAudioQualityBasedFormatSettings.h"

namespace {

const KVPresetFields<KVBitrateAudioPreset> &fields() {
    static const auto fields =
        KVPresetFields<KVBitrateAudioPreset>().integer("ZRAudioBitrate", &KVBitrateAudioPreset::audioBitrate);
    return fields;
}

} // namespace

std::unique_ptr<KVAudioFormat> KVBitrateAudioPreset::audioFormat() const {
    auto format = KVAudioPreset::audioFormat();
    auto *bitrateFormat = dynamic_cast<KVBitrateBasedAudioFormat *>(format.get());
    if (!bitrateFormat) KVFatalError("The audio format of a bitrate preset has no bitrate.");
    bitrateFormat->bitrate = audioBitrate;
    bitrateFormat->defaultBitrate = defaultAudioBitrate();
    return format;
}

QVariantMap KVBitrateAudioPreset::dictionaryRepresentation() const {
    QVariantMap dictionary = KVAudioPreset::dictionaryRepresentation();
    fields().save(*this, dictionary);
    return dictionary;
}

void KVBitrateAudioPreset::loadFromDictionary(const QVariantMap &dictionary) {
    KVAudioPreset::loadFromDictionary(dictionary);
    fields().load(*this, dictionary);
}

std::shared_ptr<KVSettingsBase> KVBitrateAudioPreset::settings() {
    return std::make_shared<KVAudioQualityBasedFormatSettings<KVBitrateAudioPreset>>(
        _shared<KVBitrateAudioPreset>());
}
