#pragma once

#include "presets/picture/KVNSImageBasedPreset.h"

/// Writes Windows bitmaps with 24 bits for a pixel.
class KVBMPPreset : public KVNSImageBasedPreset {
  public:
    QString defaultName() const override { return "BMP"; }
    KVImageFileType imageFileType() const override { return KVImageFileType::bmp; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "bmp"; }
};
