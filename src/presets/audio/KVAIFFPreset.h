#pragma once

#include "presets/audio/KVAudioPresetTable.h"
#include "presets/audio/base/KVFixedFrequencyPreset.h"
#include "presets/audio/base/KVTabulatedAudioPreset.h"

/// AIFF, always signed and the high byte first.
class KVAIFFPreset
    : public KVPresetWithFields<KVAIFFPreset,
                                KVTabulatedAudioPreset<KVFixedFrequencyPreset, KVAudioPresetTable::aiff>> {
  public:
    static const KVPresetFields<KVAIFFPreset> &fields();
    std::shared_ptr<KVSettingsBase> settings() override;
};
