#include "presets/formats/audio_track/KVWAVFormat.h"

QString KVWAVFormat::codec() const {
    return QString("pcm_") + (usesUnsignedIntegers ? "u" : "s") + QString::number(sampleBits) +
           (usesBigEndian ? "be" : "le");
}
