#pragma once

#include "presets/KVPresetWithFields.h"
#include "presets/audio/base/KVAudioPreset.h"

/// Base of the presets whose audio encoder is given a bitrate.
class KVBitrateAudioPreset : public KVPresetWithFields<KVBitrateAudioPreset, KVAudioPreset> {
  public:
    qint64 audioBitrate = 0; ///< Kilobits per second, for custom quality; 0 means the default.

    virtual qint64 defaultAudioBitrate() const { return 128; }

    std::unique_ptr<KVAudioFormat> audioFormat() const override;
    static const KVPresetFields<KVBitrateAudioPreset> &fields();
    std::shared_ptr<KVSettingsBase> settings() override;

  protected:
    KVBitrateAudioPreset() = default;
};
