#pragma once

#include "presets/audio/base/KVAudioPreset.h"

/// WAV with samples of a chosen kind.
class KVWAVPreset : public KVAudioPreset {
  public:
    qint64 frequency = 44100; ///< Hertz.
    qint64 sampleBits = 24;
    bool usesBigEndian = false;
    bool usesUnsignedIntegers = false;

    QString defaultName() const override { return "WAV"; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "wav"; }
    std::unique_ptr<KVAudioFormat> audioFormat() const override;
    KVAudioFormatClass audioFormatClass() const override;
    QVariantMap dictionaryRepresentation() const override;
    void loadFromDictionary(const QVariantMap &dictionary) override;
    std::shared_ptr<KVSettingsBase> settings() override;
};
