#include "presets/formats/video_track/static_bitrate/KVFLVFormat.h"

QStringList KVFLVFormat::additionalArguments(const KVVideoFile &, KVTrackQualitySetting) const {
    return {"-g", "200", "-qmin", "5", "-async", "50"};
}
