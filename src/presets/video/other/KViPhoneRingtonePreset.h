#pragma once

#include "presets/audio/base/KVAudioPreset.h"

/// A ringtone: mono, and cut at 40 seconds.
class KViPhoneRingtonePreset : public KVAudioPreset {
  public:
    QString defaultName() const override;
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "m4r"; }
    std::shared_ptr<KVSettingsBase> settings() override { return nullptr; }
    bool supportsStitching() const override { return false; }
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;
};
