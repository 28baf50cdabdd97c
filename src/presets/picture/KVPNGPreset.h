#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/picture/KVNSImageBasedPreset.h"

/// Writes PNG pictures.
class KVPNGPreset : public KVPresetWithFields<KVPNGPreset, KVNSImageBasedPreset> {
  public:
    bool isInterlaced = false; ///< Shows a coarse picture while the file is still being loaded.

    QString defaultName() const override { return "PNG"; }
    static const KVPresetFields<KVPNGPreset> &fields();
    KVImageFileType imageFileType() const override { return KVImageFileType::png; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "png"; }
    QVariantMap properties() const override { return {{NSImageInterlaced, isInterlaced}}; }
    std::shared_ptr<KVSettingsBase> settings() override;
};
