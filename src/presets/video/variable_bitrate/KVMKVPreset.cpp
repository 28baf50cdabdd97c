#include "presets/video/variable_bitrate/KVMKVPreset.h"

#include "video_info/tracks/KVSubtitleTrack.h"

bool KVMKVPreset::canCopySubtitleTrack(const KVSubtitleTrack &track) const {
    return track.format != "mov_text";
}
