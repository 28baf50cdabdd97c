#include "video_info/media_file/KVAudioFile.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "platform/KVFileManager.h"
#include "util/KVBackgroundQueue.h"
#include "util/KVPictureLibrary.h"
#include "video_info/media_file/KVThumbnailSize.h"
#include "video_info/media_file/KVTrackTexts.h"

#include <QScopeGuard>

#include <algorithm>

bool KVAudioFile::isDRMProtected() const {
    return isEncrypted || std::ranges::any_of(audioTracks, KVTrackTexts::hasProtectedFormat<KVAudioTrack>) ||
           KVMediaFile::isDRMProtected();
}

QString KVAudioFile::description() const {
    return KVMediaFile::description() +
           "\n\tAudio tracks: " + KVTrackTexts::markedLines(audioTracks, selectedAudioTrack);
}

void KVAudioFile::loadThumbnail(const ThumbnailCompletion &completion) {
    KVBackgroundQueue::shared().async([weakSelf = weak_from_this(), completion](const std::stop_token &stop) {
        const auto self = std::static_pointer_cast<KVAudioFile>(weakSelf.lock());
        if (!self) return;
        const QString name = KVFileManager::lastPathComponent(self->url());
        KVLog(name + " - generating thumbnail.");
        const ThumbnailResult result = self->_loadThumbnail(stop);
        if (result)
            KVLog(name +
                  QStringLiteral(" - generated thumbnail %1x%2").arg(result->width()).arg(result->height()));
        else
            KVLog(name + " - failed to generate thumbnail " + result.error().reason);
        completion(result);
    });
}

KVMediaFile::ThumbnailResult KVAudioFile::_loadThumbnail(const std::stop_token &stop) const {
    KVLog("Starting thumbnail generation.");
    const auto frame = KVFFmpegTask::generateRandomImage(*this, stop);
    if (!frame) return tl::unexpected(frame.error());
    const auto removeFrame = qScopeGuard([&] { static_cast<void>(KVFileManager::removeItem(*frame)); });

    const auto image = KVPictureLibrary::reducedImage(frame->toLocalFile(), KVLongestThumbnailSide);
    if (!image)
        return tl::unexpected(
            KVError{KVMediaFileErrorDomain,
                    0,
                    KVLocalizationCenter::localized("Thumbnail at URL %@ is in invalid image format.",
                                                    {frame->toLocalFile()}),
                    {}});
    KVLog(QStringLiteral("Generated thumbnail %1x%2").arg(image->width()).arg(image->height()));
    return *image;
}
