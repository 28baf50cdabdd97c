#pragma once

#include "presets/formats/audio_track/KVAACFormat.h"
#include "presets/formats/audio_track/KVAC3Format.h"
#include "presets/formats/audio_track/KVMP2Format.h"
#include "presets/formats/audio_track/KVMP3Format.h"
#include "presets/formats/audio_track/KVVobFormat.h"
#include "presets/formats/audio_track/KVWMAFormat.h"
#include "presets/formats/video_track/static_bitrate/KVFLVFormat.h"
#include "presets/formats/video_track/static_bitrate/KVHEVCFormat.h"
#include "presets/formats/video_track/static_bitrate/KVMPEG1Format.h"
#include "presets/formats/video_track/static_bitrate/KVMPEG2Format.h"
#include "presets/formats/video_track/static_bitrate/KVMPEG4Format.h"
#include "presets/formats/video_track/static_bitrate/KVProResFormat.h"
#include "presets/formats/video_track/static_bitrate/KVTheoraFormat.h"
#include "presets/formats/video_track/static_bitrate/KVVPXFormat.h"
#include "presets/formats/video_track/static_bitrate/KVWMVFormat.h"
#include "presets/formats/video_track/variable_bitrate/KVH264Format.h"
#include "presets/video/base/KVVideoPresetRow.h"

/// The presets of general use; the devices have a table of their own.
namespace KVVideoPresetTable {

template <class Format>
inline constexpr auto video = KVVideoFormatClass::of<Format>();
template <class Format>
inline constexpr auto audio = KVAudioFormatClass::of<Format>();

// clang-format off
// name, extension, file type, formats, bitrates (video, its maximum, audio), threads, subtitles, description, limits
inline constexpr KVVideoPresetRow hevc{"HEVC (H.265)", "mov", "mov", video<KVHEVCFormat>, audio<KVAACFormat>,
    1000, 1200, 128, 16, "mov_text", "Video: HEVC\nAudio: AAC"};
inline constexpr KVVideoPresetRow proRes{"ProRes", "mov", nullptr, video<KVProResFormat>, audio<KVAACFormat>,
    50000, 100000, 256, 16, nullptr, "Video: ProRes\nAudio: AAC"};
inline constexpr KVVideoPresetRow theora{"Ogg (Video)", "ogg", nullptr, video<KVTheoraFormat>, audio<KVVobFormat>,
    1200, 1800, 128, 16, nullptr, "Video: Theora\nAudio: Vorbis"};
inline constexpr KVVideoPresetRow webM{"WebM", "webm", nullptr, video<KVVPXFormat>, audio<KVVobFormat>,
    1200, 1800, 128, 16, nullptr, "Video: VP8\nAudio: Vorbis"};
inline constexpr KVVideoPresetRow wmv{"WMV", "wmv", nullptr, video<KVWMVFormat>, audio<KVWMAFormat>,
    600, 1200, 128, 0, nullptr, "Video: WMV (v2)\nAudio: WMA (v2)"};
inline constexpr KVVideoPresetRow flv{"FLV", "flv", "flv", video<KVFLVFormat>, audio<KVMP3Format>,
    750, 1200, 64, 0, nullptr, "Video: FLV\nAudio: MP3"};
inline constexpr KVVideoPresetRow divX{"DivX (AVI)", "avi", nullptr, video<KVMPEG4Format>, audio<KVMP3Format>,
    1024, 1200, 128, 6, nullptr, "Video: MPEG4 (DivX)\nAudio: MP3"};
inline constexpr KVVideoPresetRow xvid{"Xvid (AVI)", "avi", nullptr, video<KVMPEG4Format>, audio<KVMP3Format>,
    1024, 1200, 128, 6, nullptr, "Video: MPEG4 (Xvid)\nAudio: MP3"};
inline constexpr KVVideoPresetRow mpeg1{"MPEG-1", "mpeg", nullptr, video<KVMPEG1Format>, audio<KVMP2Format>,
    1000, 1200, 128, 0, nullptr, "Video: MPEG 1\nAudio: MP2"};
inline constexpr KVVideoPresetRow mpeg2{"MPEG-2", "vob", "dvd", video<KVMPEG2Format>, audio<KVAC3Format>,
    7500, 8000, 192, 16, nullptr, "Video: MPEG 2 (DVD compatible)\nAudio: AC3"};
inline constexpr KVVideoPresetRow ps3{"PS3", "mp4", "ipod", video<KVH264Format>, audio<KVAACFormat>,
    3000, 4500, 128, 16, nullptr, "Video: H.264 (limited to %i x %i)\nAudio: AAC", {{640, 480}}};
inline constexpr KVVideoPresetRow xbox{"Xbox", "mp4", "mp4", video<KVMPEG4Format>, audio<KVAACFormat>,
    2500, 1200, 192, 16, "mov_text", "Video: MPEG4\nAudio: AAC", {{1280, 720}}};
// clang-format on

} // namespace KVVideoPresetTable
