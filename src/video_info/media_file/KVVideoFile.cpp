#include "video_info/media_file/KVVideoFile.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVPreferences.h"
#include "platform/KVFileManager.h"
#include "util/KVAnonymousPath.h"
#include "util/KVPreferenceKeys.h"
#include "video_info/media_file/KVTrackTexts.h"

#include <algorithm>

namespace {

/// The tool would wait for ever at a pipe of that name.
bool isUsable(const QUrl &subtitles) {
    return KVFileManager::isReachable(subtitles) && !KVFileManager::isSpecialFile(subtitles);
}

QString warningOfUnreadable(const QUrl &subtitles) {
    return KVLocalizationCenter::localized("The subtitles in '%@' are not used: their text encoding is not "
                                           "known. Select the file in the row's menu "
                                           "to choose it.",
                                           {KVFileManager::lastPathComponent(subtitles)});
}

} // namespace

void KVVideoFile::setSubtitles(const std::optional<QUrl> &url, const QString &encoding) {
    if (_unreadableSubtitlesURL) warnings.removeAll(warningOfUnreadable(*_unreadableSubtitlesURL));
    _unreadableSubtitlesURL.reset();
    subtitlesFileURL = url;
    subtitlesFileEncoding = encoding;
}

void KVVideoFile::setUnreadableSubtitles(const QUrl &url) {
    setSubtitles(std::nullopt);
    _unreadableSubtitlesURL = url;
    warnings.append(warningOfUnreadable(url));
}

QString KVVideoFile::subtitlesText() const {
    if (!subtitlesFileURL) return {};
    return KVLocalizationCenter::localized(
        "Subtitles: %@ (%@)", {KVFileManager::lastPathComponent(*subtitlesFileURL), subtitlesFileEncoding});
}

bool KVVideoFile::automaticallyDetectSubtitles() {
    if (!KVPreferences::shared().boolean(KVPreferenceKeys::automaticallyAddSubtitles, true)) return false;

    const QUrl withoutExtension = KVFileManager::deletingPathExtension(url());
    const QUrl candidate = KVFileManager::appendingPathExtension(withoutExtension, QStringLiteral("srt"));
    if (isUsable(candidate)) {
        subtitlesFileURL = candidate;
        return true;
    }

    // "movie.en.srt" serves "movie.mkv".
    const QString baseName = KVFileManager::lastPathComponent(withoutExtension);
    const auto neighbours =
        KVFileManager::contentsOfDirectory(KVFileManager::deletingLastPathComponent(url()));
    if (!neighbours) return false;
    const auto found = std::ranges::find_if(*neighbours, [&](const QUrl &neighbour) {
        return KVFileManager::pathExtension(neighbour) == "srt" &&
               KVFileManager::lastPathComponent(neighbour).startsWith(baseName) && isUsable(neighbour);
    });
    if (found == neighbours->end()) return false;
    subtitlesFileURL = *found;
    return true;
}

bool KVVideoFile::isDRMProtected() const {
    return std::ranges::any_of(videoTracks, KVTrackTexts::hasProtectedFormat<KVVideoTrack>) ||
           KVAudioFile::isDRMProtected();
}

QString KVVideoFile::description() const {
    QString text = KVAudioFile::description() +
                   "\n\tVideo tracks: " + KVTrackTexts::markedLines(videoTracks, selectedVideoTrack) +
                   "\n\tSubtitles: ";
    for (const KVSubtitleTrack &track : subtitleTracks)
        text += "\n\t\t" + track.description();
    text += "\n\tSubtitles file: ";
    if (!subtitlesFileURL) return text + "No subtitles";
    return text + KVAnonymousPath(subtitlesFileURL->toLocalFile()) + " (" +
           KVLocalizationCenter::localized(subtitlesFileEncoding.toUtf8().constData()) + ")";
}
