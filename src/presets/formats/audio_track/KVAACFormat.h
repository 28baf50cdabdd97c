#pragma once

#include "presets/formats/audio_track/KVBitrateBasedAudioFormat.h"

/// AAC by the tool's own encoder.
class KVAACFormat : public KVBitrateBasedAudioFormat {
  public:
    KVAACFormat();

    QStringList additionalArguments(const KVAudioFile &file, KVTrackQualitySetting quality) const override;
    QString codec() const override { return "aac"; }
    qint64 maximumNumberOfChannels() const override { return 6; }
    QList<qint64> supportedFrequencies() const override;

  protected:
    bool _offersStereoTrack() const override { return true; }
};
