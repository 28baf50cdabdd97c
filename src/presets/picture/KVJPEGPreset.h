#pragma once

#include "presets/picture/KVNSImageBasedPreset.h"

/// Writes JPEG pictures.
class KVJPEGPreset : public KVNSImageBasedPreset {
  public:
    qint64 compression = 95; ///< Quality, 1 to 100.

    QString defaultName() const override { return "JPEG"; }
    QVariantMap dictionaryRepresentation() const override;
    KVImageFileType imageFileType() const override { return KVImageFileType::jpeg; }
    void loadFromDictionary(const QVariantMap &dictionary) override;
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "jpg"; }
    QVariantMap properties() const override;
    std::shared_ptr<KVSettingsBase> settings() override;
};
