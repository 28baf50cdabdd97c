#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/video/other/KVRemuxPreset.h"

/// Changes the container and encodes the sound.
class KVVideoRemuxPreset : public KVPresetWithFields<KVVideoRemuxPreset, KVRemuxPreset> {
  public:
    QString audioFormatName = QStringLiteral("mp3"); ///< Or "aac".

    KVAudioFormatClass audioFormatClass() const override;
    bool canCopyVideoTrack(const KVVideoFile &) const override { return true; }
    QString defaultName() const override;
    static const KVPresetFields<KVVideoRemuxPreset> &fields();
    QString localizedFormatDescription() const override;
    std::shared_ptr<KVSettingsBase> settings() override;
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;

  private:
    QStringList _audioArguments(const std::shared_ptr<KVVideoFile> &file) const;
};
