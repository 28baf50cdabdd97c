#pragma once

#include "presets/formats/audio_track/KVAudioFormat.h"

/// Base of the formats whose encoder is given a bitrate. All bitrates are kilobits per second.
class KVBitrateBasedAudioFormat : public KVAudioFormat {
  public:
    qint64 bitrate = 0;          ///< The custom value.
    qint64 defaultBitrate = 128; ///< In place of a custom value of 0.
    qint64 maxBitrate = 0;       ///< A cap; 0 means none.

    QStringList arguments(const std::shared_ptr<KVMediaFile> &file,
                          KVTrackQualitySetting quality) const override;
    std::vector<std::shared_ptr<KVOptionRoot>>
    options(const std::shared_ptr<KVPreset> &preset) const override;

    virtual QStringList bitrateArguments(const KVAudioFile &file, KVTrackQualitySetting quality) const;
    /// The value behind "-b:a:N", such as "128k".
    virtual QString bitrateFor(const KVAudioFile &file, KVTrackQualitySetting quality) const;

  protected:
    /// The bitrates that the encoder takes, rising; empty where it takes any.
    virtual QList<qint64> _legalBitrates() const { return {}; }
    /// Whether a video preset may put a stereo track beside this format's surround track.
    virtual bool _offersStereoTrack() const { return false; }

  private:
    qint64 _bitrateForQuality(KVTrackQualitySetting quality, qint64 sourceBitrate) const;
};
