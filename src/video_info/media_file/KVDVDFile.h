#pragma once

#include "video_info/media_file/KVMediaFile.h"

/// A DVD folder; the URL is the folder that encloses VIDEO_TS.
class KVDVDFile : public KVMediaFile {
  public:
    using KVMediaFile::KVMediaFile;

    std::shared_ptr<KVMediaFile> snapshot() const override { return std::make_shared<KVDVDFile>(*this); }
    KVMediaFileType mediaFileType() const override { return KVMediaFileType::dvd; }
};
