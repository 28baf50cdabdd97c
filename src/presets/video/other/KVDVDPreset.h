#pragma once

#include "presets/video/other/KVMPEG2Preset.h"

/// A disc: what the conversion writes goes on to authoring.
class KVDVDPreset : public KVMPEG2Preset {
  public:
    bool allowsArbitrarySizes() const override { return false; }
    QString defaultName() const override;
    QString localizedFormatDescription() const override;
    KVMediaFileType presetType() const override { return KVMediaFileType::dvd; }
    std::unique_ptr<KVVideoFormat> videoFormat() const override;
};
