#pragma once

#include "presets/picture/KVNSImageBasedPreset.h"

/// Writes PNG pictures.
class KVPNGPreset : public KVNSImageBasedPreset {
  public:
    bool isInterlaced = false; ///< Shows a coarse picture while the file is still being loaded.

    QString defaultName() const override { return "PNG"; }
    QVariantMap dictionaryRepresentation() const override;
    KVImageFileType imageFileType() const override { return KVImageFileType::png; }
    void loadFromDictionary(const QVariantMap &dictionary) override;
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "png"; }
    QVariantMap properties() const override { return {{NSImageInterlaced, isInterlaced}}; }
    std::shared_ptr<KVSettingsBase> settings() override;
};
