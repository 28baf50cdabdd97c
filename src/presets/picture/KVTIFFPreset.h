#pragma once

#include "presets/picture/KVNSImageBasedPreset.h"

/// Writes TIFF pictures without loss and without compression.
class KVTIFFPreset : public KVNSImageBasedPreset {
  public:
    QString defaultName() const override { return "TIFF"; }
    KVImageFileType imageFileType() const override { return KVImageFileType::tiff; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "tiff"; }
};
