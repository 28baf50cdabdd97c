#pragma once

#include "presets/settings/KVOptionBase.h"
#include "presets/settings/KVSettingsBase.h"

/// The settings of a `Preset`, which they keep alive.
template <class Preset>
class KVSettings : public KVSettingsBase {
  public:
    explicit KVSettings(std::shared_ptr<Preset> edited)
        : preset(std::move(edited)) {}

    const std::shared_ptr<Preset> preset;
};
