#pragma once

#include "video_info/media_file/KVVideoFile.h"

#include <QStringList>

#include <memory>
#include <string>

/// Probed files that never existed, for the argument lists, and the comparison of such lists.
namespace KVTestSources {

/// An H.264 video of 1920 x 1080 at 5000 kb/s and 25 frames per second with a stereo AAC track; change what
/// the test is about.
struct Video {
    QString path = QStringLiteral("/in/clip.mkv");
    QString format = QStringLiteral("h264");
    qint64 width = 1920;
    qint64 height = 1080;
    qint64 bitrate = 5000;
    double framesPerSecond = 25;
    qint64 channels = 2; ///< 0 for a video without sound.
    int audioTracks = 1;
    QStringList subtitleFormats = {};
};

/// The video track is number 0, then stand the audio tracks and the subtitle tracks. All first ones are
/// selected.
std::shared_ptr<KVVideoFile> video(const Video &source = {});

/// Reports the first index at which the lists differ.
void expectArguments(const std::string &label, const QStringList &got, const QStringList &want);

/// The list of a line in which blanks part the elements; an element with blanks stands in double quotes.
QStringList list(const char *line);

} // namespace KVTestSources
