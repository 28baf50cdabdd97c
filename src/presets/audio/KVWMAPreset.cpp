#include "presets/audio/KVWMAPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/formats/audio_track/KVWMAFormat.h"

QString KVWMAPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Audio: WMA");
}

KVAudioFormatClass KVWMAPreset::audioFormatClass() const {
    return KVAudioFormatClass::of<KVWMAFormat>();
}
