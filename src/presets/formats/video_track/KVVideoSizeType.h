#pragma once

#include <QtGlobal>

#include <array>

/// The class of a picture by its pixel count: the bitrate follows it. The raw value is the class's upper
/// bound in pixels, which no longer belongs to it.
enum class KVVideoSizeType : qint64 {
    thumbnail = 20'000,
    quarterVGA = 80'000,
    halfTelevision = 260'000,
    television = 450'000,
    halfHD = 1'176'000,
    fullHD = 2'400'000,
    ultraHD = 8'000'000,
};

namespace KVVideoSizeTypes {

struct Row {
    KVVideoSizeType type;
    int percentage; ///< The share of a bitrate range that the class uses.
};

/// All classes in rising order.
inline constexpr std::array allTypes{
    Row{KVVideoSizeType::thumbnail, 0},      Row{KVVideoSizeType::quarterVGA, 2},
    Row{KVVideoSizeType::halfTelevision, 5}, Row{KVVideoSizeType::television, 10},
    Row{KVVideoSizeType::halfHD, 25},        Row{KVVideoSizeType::fullHD, 60},
    Row{KVVideoSizeType::ultraHD, 100},
};

/// The smallest class above `pixelCount`; the largest class has no end.
KVVideoSizeType forPixelCount(double pixelCount);

int percentage(KVVideoSizeType type);

} // namespace KVVideoSizeTypes
