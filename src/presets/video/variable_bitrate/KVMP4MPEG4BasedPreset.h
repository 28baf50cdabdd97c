#pragma once

#include "presets/video/variable_bitrate/KVMP4Preset.h"

/// MP4 with the codecs of older players.
class KVMP4MPEG4BasedPreset : public KVMP4Preset {
  public:
    bool usesH264() const override { return false; }
    void setUsesH264(bool) override {}

    std::unique_ptr<KVAudioFormat> audioFormat() const override;
    QString defaultName() const override;
};
