#pragma once

#include <QtGlobal>

#include <optional>

/// The quality of one track. The raw values are persisted.
enum class KVTrackQualitySetting { low = -1, medium = 0, high = 1, keepOriginal = 2, custom = 3, copy = 4 };

/// Nothing outside of -1 to 4.
std::optional<KVTrackQualitySetting> KVTrackQualitySettingFromRawValue(qint64 rawValue);
