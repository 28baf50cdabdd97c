#include "video_info/media_file/KVPictureFile.h"

#include "util/KVBackgroundQueue.h"
#include "util/KVPictureLibrary.h"
#include "video_info/media_file/KVThumbnailSize.h"

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

void KVPictureFile::loadThumbnail(const ThumbnailCompletion &completion) {
    KVBackgroundQueue::shared().async([path = url().toLocalFile(), completion](const std::stop_token &) {
        completion(KVPictureLibrary::reducedImage(path, KVLongestThumbnailSide));
    });
}
