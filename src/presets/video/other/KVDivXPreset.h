#pragma once

#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

class KVDivXPreset : public KVTabulatedVideoPreset<KVVideoPresetTable::divX> {
  public:
    std::unique_ptr<KVVideoFormat> videoFormat() const override;
};
