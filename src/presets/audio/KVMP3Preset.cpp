#include "presets/audio/KVMP3Preset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/formats/audio_track/KVMP3Format.h"
#include "util/KVThreadCount.h"

QString KVMP3Preset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Audio: MP3");
}

KVAudioFormatClass KVMP3Preset::audioFormatClass() const {
    return KVAudioFormatClass::of<KVMP3Format>();
}

std::optional<QString> KVMP3Preset::threadCountArgument() const {
    return QString::number(KVThreadCount(8, 2));
}
