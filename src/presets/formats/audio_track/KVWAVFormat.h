#pragma once

#include "presets/formats/audio_track/KVFixedFrequencyAudioFormat.h"

/// Uncompressed samples of any kind.
class KVWAVFormat : public KVFixedFrequencyAudioFormat {
  public:
    bool usesBigEndian = false;
    bool usesUnsignedIntegers = false;

    QString codec() const override;
    qint64 maximumNumberOfChannels() const override { return 255; }
    bool takesAnyChannelLayout() const override { return true; }
};
