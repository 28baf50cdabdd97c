#pragma once

#include "presets/audio/KVAACPreset.h"

/// AAC in M4A.
class KVM4APreset : public KVAACPreset {
  public:
    QString defaultName() const override { return "M4A"; }
    QString localizedFormatDescription() const override;
    std::optional<QString> pathExtension() const override { return "m4a"; }
};
