#pragma once

#include "presets/audio/base/KVAudioPreset.h"

/// Base of the lossless presets whose rate and sample size are set outright.
class KVFixedFrequencyPreset : public KVPresetWithFields<KVFixedFrequencyPreset, KVAudioPreset> {
  public:
    qint64 frequency = 44100; ///< Hertz.
    qint64 sampleBits = 24;   ///< Each preset stores them under a key of its own.

    std::unique_ptr<KVAudioFormat> audioFormat() const override;
    static const KVPresetFields<KVFixedFrequencyPreset> &fields();

  protected:
    KVFixedFrequencyPreset() = default;
};
