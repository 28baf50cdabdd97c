#include "support/KVTestProbe.h"

#include "platform/KVProcess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRect>
#include <QStandardPaths>
#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace {

/// "30000/1001"
double ratio(const QString &text) {
    const double divisor = text.section('/', 1, 1).toDouble();
    return divisor == 0 ? 0 : text.section('/', 0, 0).toDouble() / divisor;
}

bool isColoured(QRgb pixel) {
    return qMax(qRed(pixel), qMax(qGreen(pixel), qBlue(pixel))) > 128;
}

/// Where the bright colours are.
QRect boundsOfSquare(const QImage &frame) {
    QRect bounds;
    for (int y = 0; y < frame.height(); ++y)
        for (int x = 0; x < frame.width(); ++x)
            if (isColoured(frame.pixel(x, y))) bounds |= QRect(x, y, 1, 1);
    return bounds;
}

/// The colour's letter: red, green, blue or white.
char letterOf(QRgb pixel) {
    const bool red = qRed(pixel) > 128, green = qGreen(pixel) > 128, blue = qBlue(pixel) > 128;
    if (red && green && blue) return 'w';
    if (red && !green && !blue) return 'r';
    if (!red && green && !blue) return 'g';
    return !red && !green && blue ? 'b' : '?';
}

} // namespace

QByteArray KVTestProbe::outputOf(const QString &program, const QStringList &arguments) {
    KVProcess tool;
    tool.setLaunchPath(QStandardPaths::findExecutable(program));
    tool.setArguments(arguments);
    const auto output = tool.setStandardOutput(KVProcess::Stream::pipe);
    if (!tool.launch()) return {};
    QByteArray bytes;
    for (QByteArray part = output->availableData(); !part.isEmpty(); part = output->availableData())
        bytes += part;
    tool.waitUntilExit();
    return tool.terminationStatus() == 0 ? bytes : QByteArray();
}

KVTestProbe::File KVTestProbe::probe(const QString &path) {
    const QJsonObject found =
        QJsonDocument::fromJson(
            outputOf("ffprobe", {"-v", "error", "-of", "json", "-show_format", "-show_streams", path}))
            .object();
    File file;
    file.container = found["format"]["format_name"].toString();
    file.seconds = found["format"]["duration"].toString().toDouble();
    for (const QJsonValue stream : found["streams"].toArray()) {
        const QString type = stream["codec_type"].toString();
        if (type == "data") continue;
        file.codecs << stream["codec_name"].toString();
        if (type == "video") {
            file.width = stream["width"].toInt();
            file.height = stream["height"].toInt();
            file.framesPerSecond = ratio(stream["r_frame_rate"].toString());
        } else if (type == "audio" && file.audioStreams++ == 0) {
            file.channels = stream["channels"].toInt();
        } else if (type == "subtitle" && file.subtitleCodec.isEmpty()) {
            file.subtitleCodec = stream["codec_name"].toString();
        }
    }
    return file;
}

QImage KVTestProbe::middleFrame(const QString &path, double seconds) {
    // clang-format off
    return QImage::fromData(
        outputOf("ffmpeg", {"-v", "error", "-nostdin", "-i", path, "-ss", QString::number(seconds / 2),
                            "-vf", "scale=round(iw*sar):ih,setsar=1", "-frames:v", "1",
                            "-f", "image2pipe", "-c:v", "png", "-"}),
        "PNG");
    // clang-format on
}

std::array<int, 3> KVTestProbe::loudness(const QString &path, double seconds) {
    constexpr int frequency = 8000;
    const QByteArray bytes =
        outputOf("ffmpeg", {"-v", "error", "-xerror", "-nostdin", "-i", path, "-f", "s16le", "-ac", "1",
                            "-ar", QString::number(frequency), "-"});
    std::array<int, 3> peaks{};
    const auto length = static_cast<qsizetype>(seconds * frequency / 3);
    for (qsizetype sample = 0; sample < bytes.size() / 2; ++sample) {
        int &peak = peaks.at(static_cast<std::size_t>(std::min<qsizetype>(sample / length, 2)));
        peak = std::max<int>(peak, qFromLittleEndian<qint16>(bytes.constData() + 2 * sample));
    }
    return peaks;
}

QString KVTestProbe::squareFilter(const QString &size, double seconds, int framesPerSecond) {
    QString filter =
        QString("color=c=0x202020:s=%1:r=%2:d=%3,format=gbrp").arg(size).arg(framesPerSecond).arg(seconds);
    const std::array<const char *, 4> colours{"red", "lime", "blue", "white"};
    for (int i = 0; i < 4; ++i)
        filter += QString(",drawbox=x=iw/2-ih/4+%1*ih/4:y=ih/4+%2*ih/4:w=ih/4:h=ih/4:color=%3:t=fill")
                      .arg(i % 2)
                      .arg(i / 2)
                      .arg(colours.at(static_cast<std::size_t>(i)));
    return filter;
}

QString KVTestProbe::flawOfSquare(const QImage &frame) {
    if (frame.isNull()) return "no frame";
    const QRect square = boundsOfSquare(frame);
    if (square.isEmpty()) return "no square";
    const double shape = double(square.width()) / square.height();
    if (std::abs(shape - 1) > 0.08) return QString("stretched by %1").arg(shape);
    QString quarters;
    for (const int y : {1, 3})
        for (const int x : {1, 3})
            quarters += letterOf(
                frame.pixel(square.x() + square.width() * x / 4, square.y() + square.height() * y / 4));
    return quarters == "rgbw" ? QString() : "its quarters are " + quarters;
}
