#pragma once

#include <QString>

#include <optional>

/// An audio stream as the tool's text describes it. A plain value.
struct KVAudioTrack {
    qint64 bitrate = 0;                         ///< Kilobits per second.
    QString format = QStringLiteral("unknown"); ///< "aac (LC) (mp4a / 0x6134706D)"
    qint64 frequency = 0;                       ///< Hertz.
    qint64 numberOfChannels = 0;
    std::optional<QString> trackName; ///< Language and channel count: "eng (2)".
    qint64 trackNumber = 0;           ///< Index of the stream in the container.
    /// The channels are those of a sphere (ambisonics), not of loudspeakers; ffmpeg cannot mix them by `-ac`.
    bool isAmbisonic = false;

    /// Reads one trimmed stream line; nothing (and a log line) where it describes no audio.
    static std::optional<KVAudioTrack> fromLine(const QString &line);

    QString description() const;

    bool operator==(const KVAudioTrack &) const = default;
};
