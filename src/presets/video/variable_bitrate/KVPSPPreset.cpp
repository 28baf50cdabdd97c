#include "presets/video/variable_bitrate/KVPSPPreset.h"

#include "presets/formats/video_track/static_bitrate/KVMPEG4Format.h"

std::unique_ptr<KVVideoFormat> KVPSPPreset::videoFormat() const {
    auto format = KVDevicePreset::videoFormat();
    if (auto *h264 = dynamic_cast<KVH264Format *>(format.get())) {
        h264->quantizerDifferenceBetweenFrames = 4;
        h264->groupOfPictureSize = 300;
        h264->coder = "1";
        // The later comparison adds that of colours. The quotes are part of the expression.
        h264->additionalH264Options = {"-mbd", "2",       "-cmp",  "2", "-subcmp", "2",
                                       "-cmp", "+chroma", "-subq", "1", "-rc_eq",  "'blurCplx^(1-qComp)'"};
    }
    if (auto *mpeg4 = dynamic_cast<KVMPEG4Format *>(format.get()))
        mpeg4->furtherArguments = {"-mbd", "2", "-flags", "+4mv", "-trellis", "2",
                                   "-aic", "2", "-cmp",   "2",    "-subcmp",  "2"};
    return format;
}
