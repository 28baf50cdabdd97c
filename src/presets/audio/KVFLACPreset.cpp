#include "presets/audio/KVFLACPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/formats/audio_track/KVFLACFormat.h"

QString KVFLACPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Audio: FLAC");
}

KVAudioFormatClass KVFLACPreset::audioFormatClass() const {
    return KVAudioFormatClass::of<KVFLACFormat>();
}
