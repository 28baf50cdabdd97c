#include "controllers/KVKalvoraAppDelegate.h"

#include "queues/KVConversionQueue.h"

void KVKalvoraAppDelegate::mergeAll() {
    for (const auto &queue : KVConversionQueue::allQueues()) {
        KVConversionQueue::List waiting;
        for (const auto &conversion : queue->conversions())
            if (conversion->state == KVConversionState::waitingToStart) waiting.append(conversion);
        if (waiting.size() < 2) continue;

        const auto keeper = waiting.takeFirst();
        KVMediaFileList files = keeper->mediaFiles();
        for (const auto &other : std::as_const(waiting))
            files += other->mediaFiles();
        keeper->setMediaFiles(files);
        for (const auto &delegate : keeper->delegates().allValues())
            delegate->conversionDidUpdateFiles(keeper);
        for (const auto &other : std::as_const(waiting))
            queue->cancelConversion(other);
    }
}
