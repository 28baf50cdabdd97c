#include "presets/video/variable_bitrate/KVMP4MPEG4BasedPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/video/base/KVForcedRateMP3.h"

std::unique_ptr<KVAudioFormat> KVMP4MPEG4BasedPreset::audioFormat() const {
    return KVForcedRateMP3(audioChannelsType);
}

QString KVMP4MPEG4BasedPreset::defaultName() const {
    return KVLocalizationCenter::localized("MP4 (MPEG-4)");
}
