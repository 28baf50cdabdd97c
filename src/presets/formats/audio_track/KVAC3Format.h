#pragma once

#include "presets/formats/audio_track/KVBitrateBasedAudioFormat.h"

/// Dolby Digital.
class KVAC3Format : public KVBitrateBasedAudioFormat {
  public:
    QString codec() const override { return "ac3"; }
    qint64 maximumNumberOfChannels() const override { return 6; }
    QList<qint64> supportedFrequencies() const override { return {44100, 48000}; }

  protected:
    bool _offersStereoTrack() const override { return true; }
};
