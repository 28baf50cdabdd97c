#pragma once

#include "presets/formats/audio_track/KVFixedFrequencyAudioFormat.h"

/// Apple Lossless.
class KVAppleLosslessFormat : public KVFixedFrequencyAudioFormat {
  public:
    QStringList additionalArguments(const KVAudioFile &file, KVTrackQualitySetting quality) const override;
    QString codec() const override { return "alac"; }
    qint64 maximumNumberOfChannels() const override { return 6; }
    QList<qint64> supportedFrequencies() const override;
};
