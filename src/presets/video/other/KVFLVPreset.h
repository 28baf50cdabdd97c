#pragma once

#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

class KVFLVPreset : public KVTabulatedVideoPreset<KVVideoPresetTable::flv> {
  public:
    std::unique_ptr<KVAudioFormat> audioFormat() const override;
};
