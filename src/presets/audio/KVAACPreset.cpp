#include "presets/audio/KVAACPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/formats/audio_track/KVAACFormat.h"
#include "util/KVThreadCount.h"

QString KVAACPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Audio: AAC");
}

KVAudioFormatClass KVAACPreset::audioFormatClass() const {
    return KVAudioFormatClass::of<KVAACFormat>();
}

std::optional<QString> KVAACPreset::threadCountArgument() const {
    return QString::number(KVThreadCount(16, 2));
}
