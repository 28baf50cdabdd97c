#include "presets/video/other/KVDivXPreset.h"

std::unique_ptr<KVVideoFormat> KVDivXPreset::videoFormat() const {
    auto format = KVTabulatedVideoPreset::videoFormat();
    if (auto *mpeg4 = dynamic_cast<KVMPEG4Format *>(format.get())) mpeg4->videoTag = "DX50";
    return format;
}
