#pragma once

#include "video_info/media_file/KVAudioFile.h"
#include "video_info/tracks/KVSubtitleTrack.h"
#include "video_info/tracks/KVVideoTrack.h"

/// A file with moving pictures; a kind of audio file in every test of type.
class KVVideoFile : public KVAudioFile {
  public:
    using KVAudioFile::KVAudioFile;

    std::optional<KVVideoTrack> selectedVideoTrack;
    QString subtitlesFileEncoding =
        QStringLiteral("UTF-8");          ///< Name of the text encoding of the subtitles file.
    std::optional<QUrl> subtitlesFileURL; ///< An external subtitles file.
    QList<KVSubtitleTrack> subtitleTracks;
    QList<KVVideoTrack> videoTracks;

    /// Sets or removes the external subtitles.
    void setSubtitles(const std::optional<QUrl> &url, const QString &encoding = QStringLiteral("UTF-8"));
    /// The subtitles file is not used, since its text encoding is not known: removes it and adds a warning
    /// that stays until other subtitles are set.
    void setUnreadableSubtitles(const QUrl &url);
    /// What `setUnreadableSubtitles` was called with last; empty once other subtitles are set.
    const std::optional<QUrl> &unreadableSubtitlesURL() const { return _unreadableSubtitlesURL; }
    /// "Subtitles: a.srt (windows-1251)"; empty without external subtitles.
    QString subtitlesText() const;

    /// Looks for an ".srt" beside the video, if the preference says so; true if it set `subtitlesFileURL`.
    bool automaticallyDetectSubtitles();

    bool isDRMProtected() const override;
    QString description() const override;
    std::shared_ptr<KVMediaFile> snapshot() const override { return std::make_shared<KVVideoFile>(*this); }
    KVMediaFileType mediaFileType() const override { return KVMediaFileType::video; }
    std::optional<double> stillFrameVideoSeconds() const override { return seconds; }

  private:
    std::optional<QUrl> _unreadableSubtitlesURL;
};
