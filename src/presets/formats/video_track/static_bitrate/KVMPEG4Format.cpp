#include "presets/formats/video_track/static_bitrate/KVMPEG4Format.h"

QStringList KVMPEG4Format::additionalArguments(const KVVideoFile &, KVTrackQualitySetting) const {
    QStringList arguments{"-fflags", "+igndts", "-g", "300", "-q", "1", "-async", "50"};
    if (videoTag) arguments << "-vtag" << *videoTag;
    return arguments + furtherArguments;
}
