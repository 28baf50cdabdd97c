#include "presets/video/variable_bitrate/KViPhonePreset.h"

std::unique_ptr<KVVideoFormat> KViPhonePreset::videoFormat() const {
    auto format = KVDevicePreset::videoFormat();
    if (auto *h264 = dynamic_cast<KVH264Format *>(format.get())) {
        h264->quantizerDifferenceBetweenFrames = 4;
        h264->references = 5;
        h264->trellis = 1;
        h264->flags = "+loop+mv4";
        h264->additionalH264Options = {"-vprofile", "baseline", "-cmp", "256", "-subq", "7"};
    }
    return format;
}
