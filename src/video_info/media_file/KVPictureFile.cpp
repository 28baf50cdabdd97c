#include "video_info/media_file/KVPictureFile.h"

#include "util/KVPictureLibrary.h"

KVPictureFile::KVPictureFile(const QUrl &url)
    : KVMediaFile(url) {
    const auto header = KVPictureLibrary::header(url.toLocalFile());
    if (!header) {
        readingError = header.error();
        return;
    }
    height = header->height;
    width = header->width;
}
