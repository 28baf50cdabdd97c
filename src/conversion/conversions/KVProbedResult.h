#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>
#include <QString>

#include <optional>

/// What `ffmpeg -i` prints about a finished result. A plain value.
struct KVProbedResult {
    std::optional<double> seconds; ///< Empty if unknown or only estimated.
    int videoTracks = 0;
    int audioTracks = 0;
    int subtitleTracks = 0;
    /// Sizes in pixels of the first picture track, as it is stored and as it is displayed.
    QList<QSize> pictureSizes;
    QString pictureCodec; ///< Of the first picture track; empty if there is none.

    bool isReadable() const { return videoTracks + audioTracks + subtitleTracks > 0; }

    static KVProbedResult read(const QByteArray &output);
};
