#pragma once

#include "presets/audio/base/KVAudioPreset.h"

/// AIFF, always signed and the high byte first.
class KVAIFFPreset : public KVAudioPreset {
  public:
    qint64 frequency = 44100; ///< Hertz.
    qint64 sampleBits = 24;

    QString defaultName() const override { return "AIFF"; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "aiff"; }
    std::optional<QString> fileType() const override { return "aiff"; }
    std::unique_ptr<KVAudioFormat> audioFormat() const override;
    KVAudioFormatClass audioFormatClass() const override;
    QVariantMap dictionaryRepresentation() const override;
    void loadFromDictionary(const QVariantMap &dictionary) override;
    std::shared_ptr<KVSettingsBase> settings() override;
};
