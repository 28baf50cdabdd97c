#include "video_info/tracks/KVVideoTrack.h"

#include "kvcore/KVLog.h"
#include "kvcore/KVRegex.h"
#include "kvcore/KVText.h"
#include "util/KVTruncation.h"

#include <QLocale>

#include <cmath>

namespace {

/// What the pieces of a stream's description say beyond the track's own fields.
struct Hints {
    double aspect = 0;   ///< Display aspect ratio; 0 where none is told.
    double timebase = 0; ///< The largest time base.
};

/// The ratio behind "DAR" in "[SAR 16:15 DAR 4:3]"; nothing where there is none.
std::optional<double> displayAspect(const QString &piece) {
    const QStringList parts = piece.split("DAR");
    if (parts.size() < 2) return std::nullopt;
    const QStringList ratio = KVText::trimmingWhitespace(parts[1]).split(':');
    if (ratio.size() < 2) return std::nullopt;
    const double denominator = KVText::doubleValue(ratio[1]);
    if (denominator == 0.0) return std::nullopt;
    return KVText::doubleValue(ratio[0]) / denominator;
}

void readPiece(const QString &piece, KVVideoTrack &track, Hints &hints) {
    static const KVRegex sizeRegex("^\\d+x\\d+", KVRegexOptions::caseInsensitive);
    const auto endsWith = [&](QStringView suffix) { return KVText::hasCaseInsensitiveSuffix(piece, suffix); };

    if (endsWith(u"fps")) {
        // One frame a second is what the tool says of streams whose rate it does not know.
        if (KVText::integerValue(piece) != 1) track.framesPerSecond = KVText::doubleValue(piece);
        return;
    }
    if (endsWith(u"kb/s")) track.bitrate = KVText::integerValue(piece);
    if ((endsWith(u"tbr") || endsWith(u"tbn")) && KVText::doubleValue(piece) > hints.timebase) {
        hints.timebase = KVText::doubleValue(piece);
        return;
    }
    if (KVText::matches(piece, sizeRegex)) {
        // The pattern takes a capital X as well, which does not part the numbers.
        const QStringList sides = piece.split('x');
        track.width = KVText::integerValue(sides[0]);
        track.height = KVText::integerValue(sides.value(1));
    }
    if (KVText::containsCaseInsensitive(piece, u"DAR"))
        hints.aspect = displayAspect(piece).value_or(hints.aspect);
}

/// An anamorphic stream takes its display width here, so that all later scaling sees the display size.
void correctWidth(KVVideoTrack &track, double aspect) {
    if (track.height <= 0 || aspect == 0) return;
    const double stored = static_cast<double>(track.width) / static_cast<double>(track.height);
    if (std::abs(stored - aspect) <= 0.01) return;
    KVLog(QStringLiteral("Changing width and height (%1 x %2) because of aspect ratio %3")
              .arg(track.width)
              .arg(track.height)
              .arg(aspect));
    track.width = KVTruncated(aspect * static_cast<double>(track.height), "The width of a video track");
}

} // namespace

std::optional<KVVideoTrack> KVVideoTrack::fromLine(const QString &line) {
    const QStringList parts = line.split("Video: ");
    if (parts.size() < 2) {
        KVLog("Failed to create audio track from line " + line);
        return std::nullopt;
    }
    const QStringList pieces = parts[1].split(", ");

    KVVideoTrack track;
    track.format = pieces.first();
    track.isAttachedPicture = line.contains("(attached pic)");
    Hints hints;
    for (const QString &piece : pieces)
        readPiece(piece, track, hints);
    if (track.framesPerSecond == 0) track.framesPerSecond = hints.timebase;
    correctWidth(track, hints.aspect);
    track.trackNumber = KVText::integerValue(KVText::deletingPrefix(line, u"Stream #0:").section(':', 0, 0));
    KVLog("Got " + track.description() + " from " + line);
    return track;
}

QString KVVideoTrack::description() const {
    return QStringLiteral("%1: track number %2, %3x%4, %5 fps (%6 frames)")
        .arg(format, QString::number(trackNumber), QString::number(width), QString::number(height),
             QString::number(framesPerSecond, 'g', QLocale::FloatingPointShortest),
             QString::number(numberOfFrames));
}
