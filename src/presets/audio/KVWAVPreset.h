#pragma once

#include "presets/audio/KVAudioPresetTable.h"
#include "presets/audio/base/KVFixedFrequencyPreset.h"
#include "presets/audio/base/KVTabulatedAudioPreset.h"

/// WAV with samples of a chosen kind.
class KVWAVPreset
    : public KVPresetWithFields<KVWAVPreset,
                                KVTabulatedAudioPreset<KVFixedFrequencyPreset, KVAudioPresetTable::wav>> {
  public:
    bool usesBigEndian = false;
    bool usesUnsignedIntegers = false;

    std::unique_ptr<KVAudioFormat> audioFormat() const override;
    static const KVPresetFields<KVWAVPreset> &fields();
    std::shared_ptr<KVSettingsBase> settings() override;
};
