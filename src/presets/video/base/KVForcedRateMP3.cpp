#include "presets/video/base/KVForcedRateMP3.h"

#include "presets/formats/audio_track/KVMP3Format.h"

std::unique_ptr<KVAudioFormat> KVForcedRateMP3(KVAudioChannelsType channels) {
    auto format = std::make_unique<KVMP3Format>();
    format->audioChannelsType = channels;
    format->sampleRate = 44100;
    return format;
}
