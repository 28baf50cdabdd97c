#pragma once

#include "presets/formats/audio_track/KVFixedFrequencyAudioFormat.h"

/// Uncompressed samples, always signed and the high byte first.
class KVAIFFFormat : public KVFixedFrequencyAudioFormat {
  public:
    QString codec() const override { return "pcm_s" + QString::number(sampleBits) + "be"; }
    qint64 maximumNumberOfChannels() const override { return 255; }
    bool takesAnyChannelLayout() const override { return true; }
};
