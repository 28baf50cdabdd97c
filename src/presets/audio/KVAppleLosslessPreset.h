#pragma once

#include "presets/audio/KVAudioPresetTable.h"
#include "presets/audio/base/KVFixedFrequencyPreset.h"
#include "presets/audio/base/KVTabulatedAudioPreset.h"

/// Apple Lossless in M4A.
class KVAppleLosslessPreset
    : public KVPresetWithFields<
          KVAppleLosslessPreset,
          KVTabulatedAudioPreset<KVFixedFrequencyPreset, KVAudioPresetTable::appleLossless>> {
  public:
    KVAppleLosslessPreset() { sampleBits = 16; }

    static const KVPresetFields<KVAppleLosslessPreset> &fields();
    std::shared_ptr<KVSettingsBase> settings() override;
};
