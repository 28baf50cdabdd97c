#pragma once

#include <QList>
#include <QString>

#include <optional>

/// What audio and video tracks have in common in a file's texts.
namespace KVTrackTexts {

/// True where the tool's word for the format tells of copy protection.
template <class Track>
bool hasProtectedFormat(const Track &track) {
    return track.format.startsWith("drm") || track.format.startsWith("none (drm");
}

/// One indented line for each track, a star before the selected one.
template <class Track>
QString markedLines(const QList<Track> &tracks, const std::optional<Track> &selected) {
    QString lines;
    for (const Track &track : tracks) {
        const bool isSelected = selected && selected->trackNumber == track.trackNumber;
        lines += QString("\n\t\t") + (isSelected ? '*' : ' ') + track.description();
    }
    return lines;
}

} // namespace KVTrackTexts
