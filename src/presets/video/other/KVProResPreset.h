#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

class KVProResPreset
    : public KVPresetWithFields<KVProResPreset, KVTabulatedVideoPreset<KVVideoPresetTable::proRes>> {
  public:
    KVProResFormat::Profile profile = KVProResFormat::Profile::none;

    std::unique_ptr<KVVideoFormat> videoFormat() const override;
    static const KVPresetFields<KVProResPreset> &fields();

  protected:
    KVOptionList _additionalOptions() override;
};
