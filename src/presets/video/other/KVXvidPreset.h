#pragma once

#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

class KVXvidPreset : public KVTabulatedVideoPreset<KVVideoPresetTable::xvid> {
  public:
    std::unique_ptr<KVVideoFormat> videoFormat() const override;
};
