#pragma once

#include "presets/audio/base/KVBitrateAudioPreset.h"

/// WMA.
class KVWMAPreset : public KVBitrateAudioPreset {
  public:
    QString defaultName() const override { return "WMA"; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "wma"; }
    KVAudioFormatClass audioFormatClass() const override;
};
