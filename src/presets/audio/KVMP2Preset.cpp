#include "presets/audio/KVMP2Preset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/formats/audio_track/KVMP2Format.h"
#include "util/KVThreadCount.h"

QString KVMP2Preset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Audio: MP2");
}

KVAudioFormatClass KVMP2Preset::audioFormatClass() const {
    return KVAudioFormatClass::of<KVMP2Format>();
}

std::optional<QString> KVMP2Preset::threadCountArgument() const {
    return QString::number(KVThreadCount(8, 2));
}
