#include "presets/formats/video_track/static_bitrate/KVProResFormat.h"

QStringList KVProResFormat::additionalArguments(const KVVideoFile &, KVTrackQualitySetting) const {
    if (profile == Profile::none) return {};
    return {"-profile:v", QString::number(static_cast<int>(profile))};
}

std::optional<KVProResFormat::Profile> KVProResFormat::profileFromRawValue(qint64 rawValue) {
    if (rawValue < -1 || rawValue > 3) return std::nullopt;
    return static_cast<Profile>(rawValue);
}
