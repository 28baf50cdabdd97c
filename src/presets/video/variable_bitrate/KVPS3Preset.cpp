#include "presets/video/variable_bitrate/KVPS3Preset.h"

std::unique_ptr<KVVideoFormat> KVPS3Preset::videoFormat() const {
    auto format = KVTabulatedVideoPreset::videoFormat();
    if (auto *h264 = dynamic_cast<KVH264Format *>(format.get())) h264->meMethod = "hex";
    return format;
}
