#pragma once

#include "presets/picture/KVNSImageBasedPreset.h"

/// Writes GIF pictures with a palette that fits the picture.
class KVGIFPreset : public KVNSImageBasedPreset {
  public:
    QString defaultName() const override { return "GIF"; }
    KVImageFileType imageFileType() const override { return KVImageFileType::gif; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "gif"; }
};
