#pragma once

#include "presets/settings/KVPercentageScalingOption.h"
#include "presets/settings/KVSettingsWithOptions.h"
#include "presets/settings/KVSizeOption.h"

/// The settings of a picture preset: its own options, then those of the size.
template <class Preset>
std::shared_ptr<KVSettingsBase>
KVPictureSettings(const std::shared_ptr<Preset> &preset,
                  typename KVSettingsWithOptions<Preset>::Options options = {}) {
    options.push_back(std::make_shared<KVPercentageScalingOption<Preset>>(
        KVLocalizationCenter::localized("Scale by percentage"), preset, &Preset::hasPercentageScaling));
    options.push_back(
        std::make_shared<KVSizeOption<Preset>>(KVLocalizationCenter::localized("Constrain size"), preset));
    return std::make_shared<KVSettingsWithOptions<Preset>>(preset, std::move(options));
}
