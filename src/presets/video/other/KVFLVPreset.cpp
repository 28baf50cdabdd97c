#include "presets/video/other/KVFLVPreset.h"

#include "presets/video/base/KVForcedRateMP3.h"

std::unique_ptr<KVAudioFormat> KVFLVPreset::audioFormat() const {
    return KVForcedRateMP3(audioChannelsType);
}
