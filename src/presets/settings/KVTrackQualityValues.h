#pragma once

#include "presets/formats/KVTrackQualitySetting.h"
#include "presets/settings/KVValueOption.h"

#include <vector>

/// The qualities that every quality pop-up offers, in order; no preset can take one out.
std::vector<KVValueOption<KVTrackQualitySetting>> KVTrackQualityValues();
