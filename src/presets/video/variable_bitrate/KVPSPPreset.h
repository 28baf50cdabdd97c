#pragma once

#include "presets/video/variable_bitrate/KVDevicePreset.h"

class KVPSPPreset : public KVDevicePreset<KViProductPreset, KVDeviceTable::psp> {
  public:
    std::optional<QString> fileType() const override { return "psp"; }
    std::unique_ptr<KVVideoFormat> videoFormat() const override;
};
