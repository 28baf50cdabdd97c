#include "presets/formats/video_track/static_bitrate/KVHEVCFormat.h"

QStringList KVHEVCFormat::additionalArguments(const KVVideoFile &, KVTrackQualitySetting) const {
    QStringList arguments{"-preset", "medium"};
    if (containerFormat == ContainerFormat::mov)
        arguments << "-tag:v"
                  << "hvc1";
    return arguments;
}

std::optional<KVHEVCFormat::ContainerFormat> KVHEVCFormat::containerFormatFromRawValue(qint64 rawValue) {
    if (rawValue < 0 || rawValue > 2) return std::nullopt;
    return static_cast<ContainerFormat>(rawValue);
}
