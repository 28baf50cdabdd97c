#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/video/base/KVVideoPreset.h"

struct KVVideoTrack;

/// Cuts a part out of the picture, or puts the picture in the middle of a larger one. Sizes are pixels.
class KVCropPreset : public KVPresetWithFields<KVCropPreset, KVVideoPreset> {
  public:
    qint64 height = 0;
    qint64 width = 0;
    qint64 xOffset = 0;
    qint64 yOffset = 0;

    QString defaultName() const override;
    static const KVPresetFields<KVCropPreset> &fields();
    QString localizedFormatDescription() const override;
    std::shared_ptr<KVSettingsBase> settings() override;
    bool supportsStitching() const override { return false; }
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;

  private:
    QStringList _pictureArguments(const KVVideoTrack &track) const;
    QString _filter(const KVVideoTrack &track) const;
};
