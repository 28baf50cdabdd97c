#include "video_info/tracks/KVSubtitleTrack.h"

const KVRegex &KVSubtitleTrack::lineRegex() {
    static const KVRegex regex("Stream #0:(?P<ID>\\d+)\\((?P<LANG>\\w+)\\): Subtitle: (?P<FORMAT>\\w+)",
                               KVRegexOptions::caseInsensitive);
    return regex;
}

QString KVSubtitleTrack::description() const {
    return QStringLiteral("'%1': track number %2 of format %3")
        .arg(trackName.value_or(QStringLiteral("Track")), QString::number(trackNumber), format);
}
