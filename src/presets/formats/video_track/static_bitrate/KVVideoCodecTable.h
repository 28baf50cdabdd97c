#pragma once

#include "presets/formats/video_track/KVBitrateRange.h"

#include <QString>

#include <optional>

/// What tells the codecs apart that are described by figures.
struct KVVideoCodecRow {
    enum class Match { equals, beginsWith };

    const char *codec;        ///< The encoder's name.
    Match match;              ///< How the format of a source's track is compared
    const char *sourceFormat; ///< with this one, to find out whether it can be copied.
    KVBitrateRanges bitrate;
    /// No encoder of the table uses a variable bitrate as it stands; one that begins to has its numbers here.
    std::optional<KVBitrateRanges> maxBitrate = std::nullopt;
};

/// Kilobits per second, {location, length}, in the order low, medium, high, keep quality.
namespace KVVideoCodecTable {

using enum KVVideoCodecRow::Match;

// clang-format off
inline constexpr KVVideoCodecRow hevc{"libx265", beginsWith, "hevc",
    {{400, 3500}, {500, 4000}, {600, 4500}, {700, 5000}}};

inline constexpr KVVideoCodecRow proRes{"prores", equals, "prores",
    {{10000, 140000}, {20000, 180000}, {40000, 250000}, {60000, 400000}},
    {{{15000, 146000}, {25000, 250000}, {50000, 300000}, {80000, 500000}}}};

inline constexpr KVVideoCodecRow mpeg1{"mpeg1video", equals, "mpeg1video",
    {{800, 6000}, {1000, 8000}, {1400, 10000}, {2000, 12000}}};

inline constexpr KVVideoCodecRow mpeg2{"mpeg2video", equals, "mpeg2video",
    {{900, 6000}, {1200, 8000}, {1400, 10000}, {2000, 12000}},
    {{{1100, 8000}, {1600, 10000}, {2000, 12000}, {3000, 14000}}}};

inline constexpr KVVideoCodecRow mpeg4{"mpeg4", equals, "mpeg4",
    {{400, 6000}, {800, 7000}, {1000, 8000}, {1200, 9000}}};

inline constexpr KVVideoCodecRow flv{"flv", equals, "flv",
    {{400, 4000}, {900, 5000}, {1200, 6000}, {1400, 8000}}};

inline constexpr KVVideoCodecRow theora{"libtheora", equals, "theora",
    {{400, 3000}, {900, 4000}, {1200, 5000}, {1400, 6000}},
    {{{700, 3500}, {1200, 4500}, {1400, 5500}, {1800, 6500}}}};

inline constexpr KVVideoCodecRow vpx{"libvpx", equals, "vp8",
    {{400, 3000}, {900, 4000}, {1200, 5000}, {1400, 6000}},
    {{{700, 3500}, {1200, 4500}, {1400, 5500}, {1800, 6500}}}};

inline constexpr KVVideoCodecRow wmv{"wmv2", beginsWith, "wmv",
    {{400, 3000}, {700, 4000}, {900, 5000}, {1000, 6000}}};
// clang-format on

} // namespace KVVideoCodecTable
