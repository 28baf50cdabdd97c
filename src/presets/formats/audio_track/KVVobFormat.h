#pragma once

#include "presets/formats/audio_track/KVBitrateBasedAudioFormat.h"

/// Ogg Vorbis.
class KVVobFormat : public KVBitrateBasedAudioFormat {
  public:
    QString codec() const override { return "libvorbis"; }
    qint64 maximumNumberOfChannels() const override { return 6; }
    bool takesAnyChannelLayout() const override { return true; }
    QList<qint64> supportedFrequencies() const override { return {32000, 44100, 48000}; }

  protected:
    bool _offersStereoTrack() const override { return true; }
};
