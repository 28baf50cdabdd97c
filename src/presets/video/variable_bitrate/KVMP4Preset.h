#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/formats/video_track/variable_bitrate/KVH264Format.h"
#include "presets/video/base/KVSizeRestrictedVideoPreset.h"

/// MP4, and the base of all presets that write H.264 by a profile of their own.
class KVMP4Preset : public KVPresetWithFields<KVMP4Preset, KVSizeRestrictedVideoPreset> {
  public:
    bool useHardwareAcceleration = true;

    // What the profile is made of. Where MPEG-4 is written instead, only the quantizers may follow.
    virtual double bitrateMultiplier() const { return 1.0; }
    virtual KVH264Format::Profile profile() const { return KVH264Format::Profile::high; }
    /// False writes MPEG-4 with MP3.
    virtual bool usesH264() const { return _usesH264; }
    virtual void setUsesH264(bool usesH264) { _usesH264 = usesH264; }
    virtual qint64 level() const { return 51; }
    virtual qint64 qmax() const { return 31; }
    virtual qint64 qmin() const { return 5; }

    KVAudioFormatClass audioFormatClass() const override;
    bool canCopySubtitleTrack(const KVSubtitleTrack &track) const override;
    QString defaultName() const override;
    QString defaultSubtitleFormat() const override;
    static const KVPresetFields<KVMP4Preset> &fields();
    std::optional<QString> fileType() const override;
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override;
    bool requiresEvenSizeValues() const override { return true; }
    bool supportsSubtitleMuxing() const override { return true; }
    std::unique_ptr<KVVideoFormat> videoFormat() const override;
    KVVideoFormatClass videoFormatClass() const override;

  protected:
    KVOptionList _additionalOptions() override;
    int _maximumThreadCount() const override { return usesH264() ? 16 : 6; }

  private:
    bool _usesH264 = true;
};
