#pragma once

#include "video_info/media_file/KVMediaFile.h"
#include "video_info/tracks/KVAudioTrack.h"

#include <QList>

/// A file with sound.
class KVAudioFile : public KVMediaFile {
  public:
    using KVMediaFile::KVMediaFile;

    QList<KVAudioTrack> audioTracks;
    double seconds = 0; ///< Duration.
    std::optional<KVAudioTrack> selectedAudioTrack;

    bool isDRMProtected() const override;
    QString description() const override;
    KVMediaFileType mediaFileType() const override { return KVMediaFileType::audio; }
};
