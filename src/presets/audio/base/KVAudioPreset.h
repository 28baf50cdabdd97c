#pragma once

#include "presets/KVPreset.h"
#include "presets/KVPresetWithFields.h"
#include "presets/formats/audio_track/KVAudioFormat.h"

class KVAudioFile;

/// Base of every preset that writes an audio track: decides the order of the arguments around the slice that
/// its format makes.
class KVAudioPreset : public KVPresetWithFields<KVAudioPreset, KVPreset> {
  public:
    KVAudioChannelsType audioChannelsType = KVAudioChannelsType::asSource;
    KVTrackQualitySetting audioTrackQuality = KVTrackQualitySetting::medium;
    std::optional<qint64> sampleRate; ///< Hertz; nothing means that the rate is chosen automatically.

    /// A new format with this preset's settings.
    virtual std::unique_ptr<KVAudioFormat> audioFormat() const;
    virtual KVAudioFormatClass audioFormatClass() const;

    static const KVPresetFields<KVAudioPreset> &fields();
    KVMediaFileType presetType() const override { return KVMediaFileType::audio; }
    std::shared_ptr<KVSettingsBase> settings() override;
    bool supportsStitching() const override { return true; }
    QStringList taskArgumentsForFiles(const KVMediaFileList &files, const QUrl &outputFile) const override;

  protected:
    KVAudioPreset() = default;

    /// This preset as the class that edits it.
    template <class Preset>
    std::shared_ptr<Preset> _shared() {
        return std::static_pointer_cast<Preset>(shared_from_this());
    }
};
