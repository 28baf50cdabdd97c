#pragma once

#include "presets/formats/audio_track/KVAudioFormat.h"

/// FLAC, at any rate.
class KVFLACFormat : public KVAudioFormat {
  public:
    QString codec() const override { return "flac"; }
    qint64 maximumNumberOfChannels() const override { return 8; }
    bool takesAnyChannelLayout() const override { return true; }
};
