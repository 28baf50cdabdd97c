#pragma once

#include <QString>

#include <optional>

/// A video stream as the tool's text describes it. A plain value.
struct KVVideoTrack {
    bool _warnedAboutNoFPS = false;
    qint64 bitrate = 0;                         ///< Kilobits per second.
    QString format = QStringLiteral("unknown"); ///< "h264 (High) (avc1 / 0x31637661)"
    double framesPerSecond = 0;
    qint64 height = 0;         ///< Pixels.
    qint64 numberOfFrames = 0; ///< From the file's duration.
    std::optional<QString> trackName;
    qint64 trackNumber = 0; ///< Index of the stream in the container.
    qint64 width = 0;       ///< Pixels, corrected to the display aspect ratio.
    /// A single picture that belongs to the sound, such as the cover of an album.
    bool isAttachedPicture = false;
    /// The container says that the pictures are rotated, by whatever angle. Set by KVProbeText.
    bool isRotated = false;

    /// Reads one trimmed stream line; nothing (and a log line) where it describes no video.
    static std::optional<KVVideoTrack> fromLine(const QString &line);

    QString description() const;
    QString codec() const { return format.section(' ', 0, 0); } ///< "h264"

    bool operator==(const KVVideoTrack &) const = default;
};
