#include "presets/video/other/KVXvidPreset.h"

std::unique_ptr<KVVideoFormat> KVXvidPreset::videoFormat() const {
    auto format = KVTabulatedVideoPreset::videoFormat();
    if (auto *mpeg4 = dynamic_cast<KVMPEG4Format *>(format.get())) mpeg4->videoTag = "XVID";
    return format;
}
