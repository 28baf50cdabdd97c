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

    /// Looks for an ".srt" beside the video, if the preference says so; true if it set `subtitlesFileURL`.
    bool automaticallyDetectSubtitles();

    bool isDRMProtected() const override;
    QString description() const override;
    std::shared_ptr<KVMediaFile> snapshot() const override { return std::make_shared<KVVideoFile>(*this); }
    KVMediaFileType mediaFileType() const override { return KVMediaFileType::video; }
    std::optional<double> stillFrameVideoSeconds() const override { return seconds; }
};
