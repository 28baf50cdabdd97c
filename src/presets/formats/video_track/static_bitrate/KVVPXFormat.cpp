#include "presets/formats/video_track/static_bitrate/KVVPXFormat.h"

QStringList KVVPXFormat::additionalArguments(const KVVideoFile &, KVTrackQualitySetting) const {
    return {"-qmin", "20", "-qmax", "48", "-rc_lookahead", "20"};
}
