#include "video_info/tracks/KVAudioTrack.h"

#include "kvcore/KVLog.h"
#include "kvcore/KVRegex.h"
#include "kvcore/KVText.h"

namespace {

/// "4 channels" holds 4. ffmpeg's names of layouts other than these arrive in this form.
std::optional<qint64> channelsOf(const QString &piece) {
    static const KVRegex count("(?<!\\d)(?P<N>[1-9]\\d{0,2}) channels", KVRegexOptions::caseInsensitive);
    if (KVText::containsCaseInsensitive(piece, u"stereo")) return 2;
    if (const auto match = count.firstMatch(piece); match.hasMatch())
        return KVText::integerValue(match.captured("N"));
    if (piece.contains("5.1")) return 6;
    if (piece.contains("6.1")) return 7;
    return std::nullopt;
}

/// Takes the one thing that a comma-separated piece of the stream's description says.
void readPiece(const QString &piece, KVAudioTrack &track) {
    if (KVText::hasCaseInsensitiveSuffix(piece, u"Hz"))
        track.frequency = KVText::integerValue(piece);
    else if (KVText::containsCaseInsensitive(piece, u"kb/s"))
        track.bitrate = KVText::integerValue(piece);
    else if (const auto channels = channelsOf(piece)) {
        track.numberOfChannels = *channels;
        track.isAmbisonic = piece.endsWith("(ambisonic)");
    }
}

/// `label` stands between "Stream #0:" and the next colon: "1(eng)", "1[0x1100](eng)", "1[0x1100]" or "1".
void readLabel(const QString &label, KVAudioTrack &track) {
    if (label.contains('(')) {
        const QStringList pieces = label.split('(');
        track.trackName = QStringLiteral("%1 (%2)")
                              .arg(KVText::deletingLastCharacter(pieces[1]))
                              .arg(track.numberOfChannels);
        track.trackNumber = KVText::integerValue(pieces[0]);
    } else {
        track.trackNumber = KVText::integerValue(label.section('[', 0, 0));
    }
}

} // namespace

std::optional<KVAudioTrack> KVAudioTrack::fromLine(const QString &line) {
    const QStringList parts = line.split("Audio: ");
    if (parts.size() < 2) {
        KVLog("Failed to create audio track from line " + line);
        return std::nullopt;
    }
    const QStringList pieces = parts[1].split(", ");

    KVAudioTrack track;
    track.format = pieces.first();
    track.numberOfChannels = 1; // what "mono" says; no text stands for it
    for (const QString &piece : pieces)
        readPiece(piece, track);
    readLabel(KVText::deletingPrefix(line, u"Stream #0:").section(':', 0, 0), track);
    KVLog("Got " + track.description() + " from " + line);
    return track;
}

QString KVAudioTrack::description() const {
    return QStringLiteral("'%1': track number %2, %3 channels, %4 Hz, %5 kbit/s of format %6")
        .arg(trackName.value_or(QStringLiteral("Track")), QString::number(trackNumber),
             QString::number(numberOfChannels), QString::number(frequency), QString::number(bitrate), format);
}
