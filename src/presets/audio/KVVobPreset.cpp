#include "presets/audio/KVVobPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/formats/audio_track/KVVobFormat.h"
#include "util/KVThreadCount.h"

QString KVVobPreset::defaultName() const {
    return KVLocalizationCenter::localized("Ogg (Audio)");
}

QString KVVobPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Audio: Ogg Vorbis");
}

KVAudioFormatClass KVVobPreset::audioFormatClass() const {
    return KVAudioFormatClass::of<KVVobFormat>();
}

std::optional<QString> KVVobPreset::threadCountArgument() const {
    return QString::number(KVThreadCount(8, 2));
}
