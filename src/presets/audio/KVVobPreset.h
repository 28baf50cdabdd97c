#pragma once

#include "presets/audio/base/KVBitrateAudioPreset.h"

/// Vorbis in Ogg.
class KVVobPreset : public KVBitrateAudioPreset {
  public:
    QString defaultName() const override;
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "ogg"; }
    std::optional<QString> fileType() const override { return "ogg"; }
    KVAudioFormatClass audioFormatClass() const override;
    std::optional<QString> threadCountArgument() const override;
};
