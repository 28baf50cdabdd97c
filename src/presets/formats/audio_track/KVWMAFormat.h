#pragma once

#include "presets/formats/audio_track/KVBitrateBasedAudioFormat.h"

/// Windows Media Audio, version 2.
class KVWMAFormat : public KVBitrateBasedAudioFormat {
  public:
    KVWMAFormat() { maxBitrate = 320; }

    QString codec() const override { return "wmav2"; }
    QList<qint64> supportedFrequencies() const override {
        return {8000, 11000, 22050, 24000, 32000, 44100, 48000};
    }
};
