#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/picture/KVNSImageBasedPreset.h"

/// Writes JPEG pictures.
class KVJPEGPreset : public KVPresetWithFields<KVJPEGPreset, KVNSImageBasedPreset> {
  public:
    qint64 compression = 95; ///< Quality, 1 to 100.

    QString defaultName() const override { return "JPEG"; }
    static const KVPresetFields<KVJPEGPreset> &fields();
    KVImageFileType imageFileType() const override { return KVImageFileType::jpeg; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "jpg"; }
    QVariantMap properties() const override;
    std::shared_ptr<KVSettingsBase> settings() override;
};
