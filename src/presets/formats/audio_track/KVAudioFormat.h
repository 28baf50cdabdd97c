#pragma once

#include "presets/formats/KVTrackFormat.h"
#include "presets/formats/audio_track/KVAudioChannelsType.h"

#include <QList>

#include <optional>

class KVAudioFile;

/// Base of the audio formats: one output track, its stream specifiers ending in `trackNumber`.
class KVAudioFormat : public KVTrackFormat {
  public:
    KVAudioChannelsType audioChannelsType = KVAudioChannelsType::asSource; ///< Read with custom quality only.
    std::optional<qint64> sampleRate; ///< Hertz; a rate that the person forced.
    int trackNumber = 0;              ///< Index of the audio stream in the output.

    /// `file` is a KVAudioFile.
    QStringList arguments(const std::shared_ptr<KVMediaFile> &file,
                          KVTrackQualitySetting quality) const override;
    std::vector<std::shared_ptr<KVOptionRoot>>
    options(const std::shared_ptr<KVPreset> &preset) const override;

    virtual QStringList additionalArguments(const KVAudioFile &file, KVTrackQualitySetting quality) const;
    virtual QString audioChannels(const KVAudioFile &file, KVTrackQualitySetting quality) const;
    virtual QStringList frequencyArguments(const KVAudioFile &file) const;
    virtual qint64 maximumNumberOfChannels() const { return 2; }
    /// Whether the encoder writes channels of any meaning, not those of loudspeakers only.
    virtual bool takesAnyChannelLayout() const { return false; }
    /// Hertz, in the order in which they are offered; empty means that the encoder takes any rate.
    virtual QList<qint64> supportedFrequencies() const { return {}; }

  protected:
    /// `option` for this track: "-b:a" gives "-b:a:0".
    QString _specified(const char *option) const;

  private:
    QStringList _channelArguments(const KVAudioFile &file, KVTrackQualitySetting quality) const;
};

using KVAudioFormatClass = KVTrackFormatClass<KVAudioFormat>;
