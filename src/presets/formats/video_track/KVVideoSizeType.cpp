#include "presets/formats/video_track/KVVideoSizeType.h"

#include <algorithm>

namespace KVVideoSizeTypes {

KVVideoSizeType forPixelCount(double pixelCount) {
    const auto above = std::ranges::find_if(
        allTypes, [&](const Row &row) { return static_cast<double>(row.type) > pixelCount; });
    return above == allTypes.end() ? allTypes.back().type : above->type;
}

int percentage(KVVideoSizeType type) {
    return std::ranges::find(allTypes, type, &Row::type)->percentage;
}

} // namespace KVVideoSizeTypes
