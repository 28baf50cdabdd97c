#include "video_info/media_file/KVProbeText.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVRegex.h"
#include "kvcore/KVText.h"
#include "util/KVTruncation.h"

#include <cmath>
#include <utility>

namespace {

/// "displaymatrix: rotation of -180.00 degrees". Angles below one degree change nothing.
bool rotatesPictures(const QString &line) {
    static const QString prefix = QStringLiteral("displaymatrix: rotation of ");
    return line.startsWith(prefix) && std::abs(KVText::doubleValue(line.sliced(prefix.size()))) >= 1;
}

} // namespace

KVProbeText KVProbeText::read(const QString &text, qint64 fileSize) {
    static const KVRegex rotationRegex("rotate\\s*:\\s*-?90", KVRegexOptions::caseInsensitive);
    const QString durationPrefix = QStringLiteral("Duration: ");

    KVProbeText result;
    bool isInStreams = false;     // streams count only behind the first line with a duration
    bool isInVideoStream = false; // among the lines that belong to the last video track
    bool isRotated = false;       // in the container's or in any stream's metadata
    for (const QString &untrimmed : text.split('\n')) {
        const QString line = KVText::trimmingWhitespace(untrimmed);
        if (KVText::matches(line, rotationRegex)) isRotated = true;
        if (isInStreams) {
            if (line.startsWith("Stream #")) {
                const qsizetype videoTracks = result.videoTracks.size();
                result._readStream(line);
                isInVideoStream = result.videoTracks.size() > videoTracks;
            } else if (isInVideoStream && rotatesPictures(line)) {
                result.videoTracks.last().isRotated = true;
            }
        } else if (line.startsWith(durationPrefix)) {
            result._readDuration(KVText::deletingPrefix(line, durationPrefix), fileSize);
            isInStreams = true;
        }
    }
    if (isRotated) result._swapSides();
    return result;
}

void KVProbeText::_readDuration(const QString &value, qint64 fileSize) {
    if (value.startsWith("N/A")) {
        isDurationKnown = false;
        const qint64 wholeSeconds = fileSize / 16000;
        seconds = static_cast<double>(wholeSeconds);
        KVLog(QStringLiteral("Guessing seconds - %1").arg(seconds));
        return;
    }
    const QStringList parts = value.left(11).split(':'); // "HH:MM:SS.cc"
    if (parts.size() < 3) return;
    seconds = KVText::doubleValue(parts[2]) + KVText::doubleValue(parts[1]) * 60 +
              KVText::doubleValue(parts[0]) * 3600;
    KVLog(QStringLiteral("Setting seconds to %1").arg(seconds));
}

void KVProbeText::_readStream(const QString &line) {
    if (line.count(':') < 2) {
        KVLog("Stream line hasn't got enough parts " + line);
        return;
    }
    if (KVText::containsCaseInsensitive(line, u"Audio:")) return _addAudioTrack(line);
    if (KVText::containsCaseInsensitive(line, u"Video:")) return _addVideoTrack(line);
    const auto match = KVSubtitleTrack::lineRegex().firstMatch(line);
    if (!match.hasMatch()) return;
    subtitleTracks.append({.format = match.captured("FORMAT"),
                           .trackName = match.captured("LANG"),
                           .trackNumber = KVText::integerValue(match.captured("ID"))});
}

void KVProbeText::_addAudioTrack(const QString &line) {
    auto track = KVAudioTrack::fromLine(line);
    if (!track) return;
    if (!track->trackName)
        track->trackName = KVLocalizationCenter::localized("Track %i", {audioTracks.size() + 1}) +
                           QStringLiteral(" (%1)").arg(track->numberOfChannels);
    audioTracks.append(*track);
}

void KVProbeText::_addVideoTrack(const QString &line) {
    auto track = KVVideoTrack::fromLine(line);
    if (!track) return;
    track->numberOfFrames =
        KVTruncated(track->framesPerSecond * seconds, "The number of frames of a video track");
    KVLog(QStringLiteral("Modifying video track to have %1 frames (seconds: %2)")
              .arg(track->numberOfFrames)
              .arg(seconds));
    videoTracks.append(*track);
}

void KVProbeText::_swapSides() {
    for (KVVideoTrack &track : videoTracks)
        std::swap(track.width, track.height);
}
