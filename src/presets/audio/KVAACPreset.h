#pragma once

#include "presets/audio/base/KVBitrateAudioPreset.h"

/// Bare AAC.
class KVAACPreset : public KVBitrateAudioPreset {
  public:
    QString defaultName() const override { return "AAC"; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "aac"; }
    KVAudioFormatClass audioFormatClass() const override;
    std::optional<QString> threadCountArgument() const override;
};
