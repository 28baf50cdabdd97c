#pragma once

#include "video_info/tracks/KVAudioTrack.h"
#include "video_info/tracks/KVSubtitleTrack.h"
#include "video_info/tracks/KVVideoTrack.h"

#include <QList>

/// What the text that the tool prints about a file says. A plain value.
struct KVProbeText {
    double seconds = 0;          ///< Duration.
    bool isDurationKnown = true; ///< False if `seconds` is a guess.
    QList<KVAudioTrack> audioTracks;
    QList<KVVideoTrack> videoTracks;
    QList<KVSubtitleTrack> subtitleTracks;

    /// Reads the whole text line by line; what is not understood is skipped. `fileSize` (bytes) gives a guess
    /// of the duration where the tool knows none.
    static KVProbeText read(const QString &text, qint64 fileSize);

  private:
    void _readDuration(const QString &value, qint64 fileSize);
    void _readStream(const QString &line);
    void _addAudioTrack(const QString &line);
    void _addVideoTrack(const QString &line);
    void _swapSides();
};
