#pragma once

#include "presets/audio/base/KVAudioPreset.h"

/// Makes a file louder and keeps its kind.
class KVVolumeAdjustingPreset : public KVAudioPreset {
  public:
    qint64 numberOfDecibelsToAdd = 1; ///< Hundredths of a decibel.

    QString defaultName() const override;
    QVariantMap dictionaryRepresentation() const override;
    void loadFromDictionary(const QVariantMap &dictionary) override;
    QString localizedFormatDescription() const override;
    std::shared_ptr<KVSettingsBase> settings() override;
    bool supportsStitching() const override { return false; }
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;
};
