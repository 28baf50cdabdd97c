#pragma once

#include "presets/video/variable_bitrate/KVDevicePreset.h"

class KViPhonePreset : public KVDevicePreset<KViProductPreset, KVDeviceTable::iPhone> {
  public:
    std::unique_ptr<KVVideoFormat> videoFormat() const override;
};
