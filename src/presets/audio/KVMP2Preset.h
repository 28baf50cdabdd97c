#pragma once

#include "presets/audio/base/KVBitrateAudioPreset.h"

/// MP2.
class KVMP2Preset : public KVBitrateAudioPreset {
  public:
    QString defaultName() const override { return "MP2"; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "mp2"; }
    KVAudioFormatClass audioFormatClass() const override;
    std::optional<QString> threadCountArgument() const override;
};
