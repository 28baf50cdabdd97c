#include "util/KVBackgroundQueue.h"

#include <QCoreApplication>

KVBackgroundQueue &KVBackgroundQueue::shared() {
    static KVBackgroundQueue queue(2);
    // Before the process-wide objects go that the work may use.
    static const bool isRegistered = (qAddPostRoutine([] { shared().finish(); }), true);
    static_cast<void>(isRegistered);
    return queue;
}

KVBackgroundQueue::KVBackgroundQueue(std::size_t maximumNumberOfThreads)
    : _maximumNumberOfThreads(maximumNumberOfThreads) {}

void KVBackgroundQueue::async(Work work) {
    const std::scoped_lock lock(_mutex);
    if (_isFinished) return;
    _waiting.push_back(std::move(work));
    if (_waiting.size() > _idleThreads && _threads.size() < _maximumNumberOfThreads)
        _threads.emplace_back([this](const std::stop_token &stop) { _run(stop); });
    _changed.notify_one();
}

void KVBackgroundQueue::setIsHeld(bool isHeld) {
    const std::scoped_lock lock(_mutex);
    _isHeld = isHeld;
    _changed.notify_all();
}

void KVBackgroundQueue::finish() {
    std::deque<Work> dropped;
    std::vector<std::jthread> threads;
    {
        const std::scoped_lock lock(_mutex);
        _isFinished = true;
        dropped.swap(_waiting);
        threads.swap(_threads);
    }
    for (std::jthread &thread : threads)
        thread.request_stop();
    for (std::jthread &thread : threads)
        thread.join();
}

void KVBackgroundQueue::_run(const std::stop_token &stop) {
    std::unique_lock lock(_mutex);
    for (;;) {
        ++_idleThreads;
        const bool hasWork = _changed.wait(lock, stop, [this] { return !_isHeld && !_waiting.empty(); });
        --_idleThreads;
        if (!hasWork || stop.stop_requested()) return;
        Work work = std::move(_waiting.front());
        _waiting.pop_front();
        lock.unlock();
        work(stop);
        work = {}; // what it holds may go now, and not under the lock
        lock.lock();
    }
}
