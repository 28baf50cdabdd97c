#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/video/base/KVVideoPreset.h"

/// The raw values are persisted.
enum class KVTransformType {
    rotate90DegreesClockwise = 0,
    rotate90DegreesCounterClockwise = 1,
    flipHorizontal = 2,
    flipVertical = 3,
};

std::optional<KVTransformType> KVTransformTypeFromRawValue(qint64 rawValue);

/// Turns or mirrors the picture.
class KVTransformPreset : public KVPresetWithFields<KVTransformPreset, KVVideoPreset> {
  public:
    KVTransformType transformType = KVTransformType::rotate90DegreesClockwise;

    QString defaultName() const override;
    static const KVPresetFields<KVTransformPreset> &fields();
    QString localizedFormatDescription() const override;
    std::shared_ptr<KVSettingsBase> settings() override;
    bool supportsStitching() const override { return false; }
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;
};
