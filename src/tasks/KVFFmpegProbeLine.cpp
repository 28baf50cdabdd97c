#include "tasks/KVFFmpegProbeLine.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace {

struct NamedLayout {
    QLatin1String name;
    int channels;
};

/// Names without digits that add up. "7.1(wide)", "5.0" and the like are read from their numbers.
constexpr std::array namedLayouts{
    NamedLayout{QLatin1String("mono"), 1},           NamedLayout{QLatin1String("stereo"), 2},
    NamedLayout{QLatin1String("downmix"), 2},        NamedLayout{QLatin1String("binaural"), 2},
    NamedLayout{QLatin1String("quad"), 4},           NamedLayout{QLatin1String("hexagonal"), 6},
    NamedLayout{QLatin1String("octagonal"), 8},      NamedLayout{QLatin1String("cube"), 8},
    NamedLayout{QLatin1String("hexadecagonal"), 16},
};

/// The parsers know these by themselves.
bool isKnownToTheParsers(const QString &layout) {
    static const QRegularExpression known(QStringLiteral("^(?:mono|stereo|5\\.1|6\\.1)(?:\\(|$)"));
    return known.match(layout.trimmed()).hasMatch();
}

/// "    displaymatrix: rotation of -90.00 degrees". Rotations within a degree count as ffmpeg counts them.
QString rotationLine(const QString &line) {
    static const QRegularExpression rotation(
        QStringLiteral("^(\\s*)displaymatrix: rotation of (-?\\d+(?:\\.\\d+)?) degrees"));
    const auto match = rotation.match(line);
    if (!match.hasMatch() || std::abs(std::abs(match.captured(2).toDouble()) - 90) >= 1) return line;
    return line + '\n' + match.captured(1) + "rotate          : 90";
}

/// The layout follows the sampling rate: "44100 Hz, quad, fltp".
void replaceLayout(QString &line) {
    static const QRegularExpression layout(QStringLiteral(" Hz, ([^,]+?)(?=,|\\s*$)"));
    const auto match = layout.match(line);
    if (!match.hasMatch() || isKnownToTheParsers(match.captured(1))) return;
    const int channels = KVFFmpegProbeLine::channelsOfLayout(match.captured(1));
    if (channels == 0) return;
    line.replace(match.capturedStart(1), match.capturedLength(1),
                 QStringLiteral("%1 channels").arg(channels) +
                     (match.captured(1).startsWith("ambisonic") ? " (ambisonic)" : ""));
}

/// Rates of whole thousands are abbreviated. 90k is the clock of MPEG and no rate of pictures.
void writeOutThousands(QString &line) {
    static const QRegularExpression rate(QStringLiteral(", (?!90k)(\\d+)k (?=fps|tbr)"));
    line.replace(rate, QStringLiteral(", \\1000 "));
}

QString streamLine(QString line) {
    static const QRegularExpression streamId(QStringLiteral("^(\\s*Stream #\\d+:\\d+)\\[0x[0-9a-fA-F]+\\]"));
    line.replace(streamId, QStringLiteral("\\1"));
    if (line.contains(": Audio: ")) replaceLayout(line);
    if (line.contains(": Video: ")) writeOutThousands(line);
    return line;
}

} // namespace

int KVFFmpegProbeLine::channelsOfLayout(const QString &layout) {
    static const QRegularExpression count(QStringLiteral("^(\\d+) channels"));
    static const QRegularExpression numbers(QStringLiteral("^(\\d+)((?:\\.\\d+)+)"));
    static const QRegularExpression ambisonic(QStringLiteral("^ambisonic (\\d+)(?:\\+(.+))?"));
    if (const auto match = count.match(layout); match.hasMatch()) return match.captured(1).toInt();
    if (const auto match = numbers.match(layout); match.hasMatch()) {
        const QStringList parts = match.captured(0).split('.');
        return std::accumulate(parts.begin(), parts.end(), 0,
                               [](int sum, const QString &part) { return sum + part.toInt(); });
    }
    if (const auto match = ambisonic.match(layout); match.hasMatch()) {
        const int order = match.captured(1).toInt();
        return (order + 1) * (order + 1) + channelsOfLayout(match.captured(2));
    }
    const QString name = layout.section('(', 0, 0).trimmed();
    const auto found = std::ranges::find(namedLayouts, name, &NamedLayout::name);
    return found == namedLayouts.end() ? 0 : found->channels;
}

QString KVFFmpegProbeLine::inOurForm(const QString &line) {
    if (line.trimmed().startsWith("Stream #")) return streamLine(line);
    return rotationLine(line);
}
