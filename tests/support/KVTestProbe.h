#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

#include <array>

/// What an independent look at a converted file finds.
namespace KVTestProbe {

struct File {
    QString container; ///< "mov,mp4,m4a,3gp,3g2,mj2"
    double seconds = 0;
    QStringList codecs; ///< Of all streams but data, in order: "h264", "aac".
    int width = 0;      ///< As stored.
    int height = 0;
    double framesPerSecond = 0;
    int channels = 0; ///< Of the first audio stream.
    int audioStreams = 0;
    QString subtitleCodec; ///< Of the first track of subtitles, wherever it stands.
};

/// An empty answer where the file cannot be read.
File probe(const QString &path);

/// The frame in the middle, turned and stretched as a player shows it; null where there is none.
QImage middleFrame(const QString &path, double seconds);

/// The greatest value of each third of the sound, as if it had to last that long: 0 where it ends before.
std::array<int, 3> loudness(const QString &path, double seconds);

/// The test picture: a square of four colours, half as high as the picture, in its middle.
/// `size` is the picture as a player shows it.
QString squareFilter(const QString &size, double seconds, int framesPerSecond = 25);

/// Whether the frame shows that square whole, upright and unstretched; else what is wrong with it.
QString flawOfSquare(const QImage &frame);

/// Standard output of a program; empty where it fails.
QByteArray outputOf(const QString &program, const QStringList &arguments);

} // namespace KVTestProbe
