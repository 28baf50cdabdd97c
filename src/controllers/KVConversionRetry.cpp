#include "controllers/KVConversionRetry.h"

#include "controllers/KVConversionTableRow.h"
#include "conversion/conversions/KVVideoConversion.h"
#include "kvcore/KVMainThread.h"
#include "queues/KVConversionQueue.h"
#include "queues/KVRowEdits.h"
#include "video_info/media_file/KVVideoFile.h"

namespace {

/// The row's own preset, with its present settings. A row without one keeps the preset that has run when
/// another one is selected for the queue meanwhile.
std::shared_ptr<KVPreset> presetForRetry(const KVConversion &failed, const KVConversionQueue &queue) {
    const auto used = failed.presetInForce(); // a copy of the one that is in the registry
    if (!failed.customPreset() && used->name == queue.selectedPreset()->name) return nullptr;
    const auto current = KVPreset::presetNamed(used->name);
    return current ? current : used;
}

void removeSubtitles(const KVMediaFileList &files) {
    for (const auto &file : files)
        if (const auto video = std::dynamic_pointer_cast<KVVideoFile>(file)) video->subtitlesFileURL.reset();
}

} // namespace

std::shared_ptr<KVConversion> KVRetryConversion(const std::shared_ptr<KVConversion> &failed,
                                                const KVRetryChanges &changes) {
    const auto queue = std::dynamic_pointer_cast<KVConversionQueue>(failed->queue());
    const auto files = failed->mediaFiles();
    if (!queue || files.isEmpty() || !failed->isFinished()) return nullptr;
    const qsizetype place = queue->conversions().indexOf(failed);
    if (place < 0) return nullptr;

    if (changes.isWithoutSubtitles) removeSubtitles(files);
    auto again = queue->createConversion(files.first(), presetForRetry(*failed, *queue), false);
    again->setMediaFiles(files);
    again->setOutputFileName(failed->outputFileName());
    again->setDestinationFolder(changes.destinationFolder ? changes.destinationFolder
                                                          : failed->destinationFolder());
    const auto disc = std::dynamic_pointer_cast<KVVideoConversion>(again);
    const auto failedDisc = std::dynamic_pointer_cast<KVVideoConversion>(failed);
    if (disc && failedDisc) disc->setDVDName(failedDisc->dvdName());
    queue->insertConversion(again, place);
    queue->cancelConversion(failed);
    if (changes.isStarted) queue->startConversion(again);
    return again;
}

void KVAddConversionsAgain(const QList<std::shared_ptr<KVConversion>> &rows,
                           const std::shared_ptr<KVConversionRowServices> &services) {
    QList<QUrl> urls;
    for (const auto &row : rows)
        for (const auto &file : row->mediaFiles())
            urls.append(file->url());
    KVRowEdits::shared().removeToAddAgain(rows);
    KVMainThread::after(0.5, [services, urls] { services->addFiles(urls); });
}
