#include "presets/formats/KVTrackQualitySetting.h"

std::optional<KVTrackQualitySetting> KVTrackQualitySettingFromRawValue(qint64 rawValue) {
    constexpr auto lowest = static_cast<qint64>(KVTrackQualitySetting::low);
    constexpr auto highest = static_cast<qint64>(KVTrackQualitySetting::copy);
    if (rawValue < lowest || rawValue > highest) return std::nullopt;
    return static_cast<KVTrackQualitySetting>(rawValue);
}
