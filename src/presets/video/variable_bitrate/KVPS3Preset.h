#pragma once

#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

class KVPS3Preset : public KVTabulatedVideoPreset<KVVideoPresetTable::ps3> {
  public:
    std::unique_ptr<KVVideoFormat> videoFormat() const override;
};
