#pragma once

#include "video_info/media_file/KVMediaFile.h"
#include "video_info/tracks/KVAudioTrack.h"

#include <QList>

#include <stop_token>

/// A file with sound.
class KVAudioFile : public KVMediaFile {
  public:
    using KVMediaFile::KVMediaFile;
    using KVMediaFile::loadThumbnail;

    QList<KVAudioTrack> audioTracks;
    double seconds = 0; ///< Duration.
    std::optional<KVAudioTrack> selectedAudioTrack;
    bool isEncrypted = false; ///< A track is encrypted, so that nothing useful comes out of it.

    bool isDRMProtected() const override;
    QString description() const override;
    void loadThumbnail(const ThumbnailCompletion &completion) override;
    std::shared_ptr<KVMediaFile> snapshot() const override { return std::make_shared<KVAudioFile>(*this); }
    KVMediaFileType mediaFileType() const override { return KVMediaFileType::audio; }

  private:
    /// Grabs a frame and reads it: a cover picture where the tool finds one. Blocks; `stop` ends it early.
    virtual ThumbnailResult _loadThumbnail(const std::stop_token &stop) const;
};
