#pragma once

#include "presets/audio/base/KVAudioPreset.h"

/// Apple Lossless in M4A.
class KVAppleLosslessPreset : public KVAudioPreset {
  public:
    qint64 frequency = 44100; ///< Hertz.
    qint64 sampleBits = 16;

    QString defaultName() const override;
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "m4a"; }
    std::unique_ptr<KVAudioFormat> audioFormat() const override;
    KVAudioFormatClass audioFormatClass() const override;
    QVariantMap dictionaryRepresentation() const override;
    void loadFromDictionary(const QVariantMap &dictionary) override;
    std::shared_ptr<KVSettingsBase> settings() override;
};
