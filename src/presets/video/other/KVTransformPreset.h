#pragma once

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
class KVTransformPreset : public KVVideoPreset {
  public:
    KVTransformType transformType = KVTransformType::rotate90DegreesClockwise;

    QString defaultName() const override;
    QVariantMap dictionaryRepresentation() const override;
    void loadFromDictionary(const QVariantMap &dictionary) override;
    QString localizedFormatDescription() const override;
    std::shared_ptr<KVSettingsBase> settings() override;
    bool supportsStitching() const override { return false; }
    QStringList taskArguments(const std::shared_ptr<KVMediaFile> &file,
                              const QUrl &outputFile) const override;
};
