#pragma once

#include "presets/formats/audio_track/KVBitrateBasedAudioFormat.h"

/// MPEG audio, layer II.
class KVMP2Format : public KVBitrateBasedAudioFormat {
  public:
    QString codec() const override { return "mp2"; }
    QList<qint64> supportedFrequencies() const override { return {32000, 44100, 48000}; }

  protected:
    QList<qint64> _legalBitrates() const override {
        return {32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
    }
};
