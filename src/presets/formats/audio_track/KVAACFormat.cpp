#include "presets/formats/audio_track/KVAACFormat.h"

KVAACFormat::KVAACFormat() {
    bitrate = 320;
    maxBitrate = 390;
}

QStringList KVAACFormat::additionalArguments(const KVAudioFile &, KVTrackQualitySetting) const {
    return {_specified("-aq:a"), "512", "-strict", "-2"};
}

QList<qint64> KVAACFormat::supportedFrequencies() const {
    return {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000, 64000, 88200, 96000};
}
