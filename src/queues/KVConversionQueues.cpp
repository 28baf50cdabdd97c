#include "queues/KVConversionQueue.h"

#include "kvcore/KVMainThread.h"

#include <QCoreApplication>

#include <algorithm>
#include <map>

// The process's queues as a whole.

namespace {

struct Queues {
    std::mutex mutex;
    std::map<KVMediaFileType, std::shared_ptr<KVConversionQueue>> byType;
};

/// Never destroyed: a worker that is still alive when the process exits finds its queue.
Queues &queues() {
    static Queues &queues = *new Queues;
    return queues;
}

} // namespace

std::shared_ptr<KVConversionQueue> KVConversionQueue::queue(KVMediaFileType type) {
    const std::scoped_lock lock(queues().mutex);
    // Whatever way the application ends, its workers end before it does.
    if (queues().byType.empty()) qAddPostRoutine([] { cancelAllAndWait(2); });
    auto &queue = queues().byType[type];
    if (!queue) queue = std::make_shared<KVConversionQueue>(type);
    return queue;
}

std::vector<std::shared_ptr<KVConversionQueue>> KVConversionQueue::allQueues() {
    std::vector<std::shared_ptr<KVConversionQueue>> all;
    all.reserve(std::size(KVMediaFileTypes::allTypes));
    for (const auto type : KVMediaFileTypes::allTypes)
        all.push_back(queue(type));
    return all;
}

std::vector<std::shared_ptr<KVConversionQueue>> KVConversionQueue::_existingQueues() {
    const std::scoped_lock lock(queues().mutex);
    std::vector<std::shared_ptr<KVConversionQueue>> existing;
    for (const auto &[type, queue] : queues().byType)
        existing.push_back(queue);
    return existing;
}

bool KVConversionQueue::isAnyQueueWorking() {
    return std::ranges::any_of(allQueues(), [](const auto &queue) { return queue->isWorking(); });
}

bool KVConversionQueue::isAnyConversionRunning() {
    return std::ranges::any_of(_existingQueues(),
                               [](const auto &queue) { return queue->isAnythingRunning(); });
}

double KVConversionQueue::totalProgress() {
    double sum = 0;
    qsizetype count = 0;
    for (const auto &queue : allQueues()) {
        const auto rows = queue->conversions();
        count += rows.size();
        for (const auto &conversion : rows)
            sum += conversion->overallValue();
    }
    return count == 0 ? 0 : sum / static_cast<double>(count);
}

void KVConversionQueue::addDelegateToAllQueues(const std::shared_ptr<KVConversionQueueDelegate> &delegate) {
    for (const auto &queue : allQueues())
        queue->appendDelegate(delegate);
}

void KVConversionQueue::removeDelegateFromAllQueues(
    const std::shared_ptr<KVConversionQueueDelegate> &delegate) {
    for (const auto &queue : allQueues())
        queue->removeDelegate(delegate);
}

bool KVConversionQueue::anyQueueContainsMedia(const QUrl &url) {
    return std::ranges::any_of(allQueues(), [&](const auto &queue) { return queue->_containsMedia(url); });
}

void KVConversionQueue::startAllQueues() {
    for (const auto &queue : allQueues())
        queue->start();
}

void KVConversionQueue::pauseAllQueues() {
    for (const auto &queue : allQueues())
        queue->pause();
}

bool KVConversionQueue::cancelAllAndWait(double seconds) {
    const auto existing = _existingQueues();
    for (const auto &queue : existing)
        queue->_setIsQuitting(true);
    const bool haveEnded = _endWorkers(existing, seconds);
    for (const auto &queue : existing)
        queue->_setIsQuitting(false);
    return haveEnded;
}
