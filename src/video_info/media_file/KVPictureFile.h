#pragma once

#include "video_info/media_file/KVMediaFile.h"

/// A still picture. The size is read without decoding the image.
class KVPictureFile : public KVMediaFile {
  public:
    explicit KVPictureFile(const QUrl &url);

    double height = 0; ///< Pixels; 0 where the image cannot be read.
    double width = 0;

    KVMediaFileType mediaFileType() const override { return KVMediaFileType::picture; }
};
