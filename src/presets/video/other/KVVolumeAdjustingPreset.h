#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/audio/base/KVAudioPreset.h"

/// Makes a file louder and keeps its kind.
class KVVolumeAdjustingPreset : public KVPresetWithFields<KVVolumeAdjustingPreset, KVAudioPreset> {
  public:
    qint64 numberOfDecibelsToAdd = 1; ///< Hundredths of a decibel.

    QString defaultName() const override;
    static const KVPresetFields<KVVolumeAdjustingPreset> &fields();
    QString localizedFormatDescription() const override;
    std::shared_ptr<KVSettingsBase> settings() override;
    bool supportsStitching() const override { return false; }
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;
};
