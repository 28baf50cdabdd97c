#pragma once

#include "presets/audio/base/KVAudioPreset.h"

/// FLAC.
class KVFLACPreset : public KVAudioPreset {
  public:
    QString defaultName() const override { return "FLAC"; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "flac"; }
    KVAudioFormatClass audioFormatClass() const override;
};
