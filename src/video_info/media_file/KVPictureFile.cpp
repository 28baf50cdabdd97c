#include "video_info/media_file/KVPictureFile.h"

#include "kvcore/KVLocalizationCenter.h"
#include "util/KVBackgroundQueue.h"
#include "util/KVPictureLibrary.h"
#include "video_info/media_file/KVThumbnailSize.h"

KVPictureFile::KVPictureFile(const QUrl &url, const std::stop_token &stop)
    : KVMediaFile(url) {
    const auto header = KVPictureLibrary::header(url.toLocalFile(), stop);
    if (!header) {
        readingError = header.error();
        return;
    }
    height = header->height;
    width = header->width;
    if (header->numberOfPages > 1)
        warnings.append(KVLocalizationCenter::localized("Only the first of %i pages is converted.",
                                                        {header->numberOfPages}));
}

void KVPictureFile::loadThumbnail(const ThumbnailCompletion &completion) {
    KVBackgroundQueue::shared().async([path = url().toLocalFile(), completion](const std::stop_token &stop) {
        completion(KVPictureLibrary::reducedImage(path, KVLongestThumbnailSide, stop));
    });
}
