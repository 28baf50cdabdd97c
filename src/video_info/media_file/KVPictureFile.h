#pragma once

#include "kvcore/KVError.h"
#include "video_info/media_file/KVMediaFile.h"

#include <optional>
#include <stop_token>

/// A still picture. The size is read without decoding the image.
class KVPictureFile : public KVMediaFile {
  public:
    /// Takes seconds for the rare kinds that a helper program reads; `stop` ends it.
    explicit KVPictureFile(const QUrl &url, const std::stop_token &stop = {});

    double height = 0; ///< Pixels; 0 where the image cannot be read.
    double width = 0;
    std::optional<KVError> readingError; ///< Why the image cannot be read, in the user's language.

    std::shared_ptr<KVMediaFile> snapshot() const override { return std::make_shared<KVPictureFile>(*this); }
    KVMediaFileType mediaFileType() const override { return KVMediaFileType::picture; }

    void loadThumbnail() override { _startThumbnail(); }
    /// The picture itself, made smaller in the background.
    void loadThumbnail(const ThumbnailCompletion &completion) override;
};
