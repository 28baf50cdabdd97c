#include "presets/formats/audio_track/KVAppleLosslessFormat.h"

#include "video_info/media_file/KVAudioFile.h"

QStringList KVAppleLosslessFormat::additionalArguments(const KVAudioFile &file, KVTrackQualitySetting) const {
    if (!file.selectedAudioTrack) return {};
    QStringList arguments{"-sample_fmt", "s" + QString::number(sampleBits) + "p"};
    // A source of the same kind keeps the rate that it declares.
    if (file.selectedAudioTrack->format.startsWith("alac"))
        arguments << _specified("-b:a") << QString::number(file.selectedAudioTrack->bitrate) + "k";
    return arguments;
}

QList<qint64> KVAppleLosslessFormat::supportedFrequencies() const {
    return KVFixedFrequencyAudioFormat::supportedFrequencies() << 384000;
}
