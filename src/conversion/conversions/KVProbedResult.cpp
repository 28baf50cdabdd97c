#include "conversion/conversions/KVProbedResult.h"

#include "tasks/KVFFmpegDialect.h"
#include "video_info/media_file/KVProbeText.h"

#include <QRegularExpression>

KVProbedResult KVProbedResult::read(const QByteArray &output) {
    // Only metadata can hold bytes that are not text, and it does not matter here.
    const QString text = KVFFmpegDialect::probeTextFromTool(QString::fromUtf8(output));
    const auto probe = KVProbeText::read(text, 0);
    KVProbedResult result;
    result.videoTracks = static_cast<int>(probe.videoTracks.size());
    result.audioTracks = static_cast<int>(probe.audioTracks.size());
    // Also those without a language.
    static const QRegularExpression subtitles("^ *Stream #0:\\d+.*: Subtitle: ",
                                              QRegularExpression::MultilineOption);
    for (auto matches = subtitles.globalMatch(text); matches.hasNext(); matches.next())
        ++result.subtitleTracks;
    if (probe.seconds > 0 && !text.contains("Estimating duration from bitrate"))
        result.seconds = probe.seconds;

    if (probe.videoTracks.isEmpty()) return result;
    static const QRegularExpression picture("^ *Stream #0:\\d+.*: Video: .*, (\\d+)x(\\d+)\\b",
                                            QRegularExpression::MultilineOption);
    if (const auto match = picture.match(text); match.hasMatch())
        result.pictureSizes += QSize(match.captured(1).toInt(), match.captured(2).toInt());
    const KVVideoTrack &track = probe.videoTracks.first();
    result.pictureCodec = track.codec();
    result.pictureSizes += QSize(static_cast<int>(track.width), static_cast<int>(track.height));
    return result;
}
