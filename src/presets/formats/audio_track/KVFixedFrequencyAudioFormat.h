#pragma once

#include "presets/formats/audio_track/KVAudioFormat.h"

/// Base of the lossless formats whose rate and sample size are set outright: a source of another rate is
/// brought to `frequency`, whatever `sampleRate` says. The rates on offer are for a person to choose from.
class KVFixedFrequencyAudioFormat : public KVAudioFormat {
  public:
    qint64 frequency = 44100; ///< Hertz.
    qint64 sampleBits = 16;

    QStringList frequencyArguments(const KVAudioFile &file) const override;
    QList<qint64> supportedFrequencies() const override;
};
