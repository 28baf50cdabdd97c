#include "presets/formats/audio_track/KVFixedFrequencyAudioFormat.h"

#include "video_info/media_file/KVAudioFile.h"

QStringList KVFixedFrequencyAudioFormat::frequencyArguments(const KVAudioFile &file) const {
    if (!file.selectedAudioTrack || file.selectedAudioTrack->frequency == frequency) return {};
    return {_specified("-ar:a"), QString::number(frequency)};
}

QList<qint64> KVFixedFrequencyAudioFormat::supportedFrequencies() const {
    return {1000,  4800,  8000,  9000,  12000, 13000,  16000, 18000,
            32000, 44100, 48000, 64000, 88200, 128000, 176400};
}
