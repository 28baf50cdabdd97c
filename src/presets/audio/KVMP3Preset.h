#pragma once

#include "presets/audio/base/KVBitrateAudioPreset.h"

/// MP3: the preset for sound where nothing else was chosen.
class KVMP3Preset : public KVBitrateAudioPreset {
  public:
    QString defaultName() const override { return "MP3"; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "mp3"; }
    KVAudioFormatClass audioFormatClass() const override;
    std::optional<QString> threadCountArgument() const override;
};
