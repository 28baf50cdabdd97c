#include "kvcore/KVSerialQueue.h"

#include <pthread.h>

#include <utility>

KVSerialQueue::KVSerialQueue(QString label)
    : _label(std::move(label)) {}

KVSerialQueue::~KVSerialQueue() {
    {
        const std::scoped_lock lock(_mutex);
        _blocks.clear();
        _isEnding = true;
    }
    _changed.notify_all();
    if (_thread.joinable()) _thread.join();
}

void KVSerialQueue::async(std::function<void()> block) {
    {
        const std::scoped_lock lock(_mutex);
        _blocks.push_back(std::move(block));
        if (!_thread.joinable()) _thread = std::thread([this] { _run(); });
    }
    _changed.notify_all();
}

void KVSerialQueue::removeAll() {
    {
        const std::scoped_lock lock(_mutex);
        _blocks.clear();
    }
    _changed.notify_all();
}

bool KVSerialQueue::isIdle() const {
    const std::scoped_lock lock(_mutex);
    return _blocks.empty() && !_isRunningBlock;
}

void KVSerialQueue::waitUntilIdle() {
    std::unique_lock lock(_mutex);
    _changed.wait(lock, [this] { return _blocks.empty() && !_isRunningBlock; });
}

void KVSerialQueue::_run() {
    // The system keeps 15 characters of a thread's name: the last word of the label tells most.
    const QByteArray name = _label.section(u'.', -1).left(15).toUtf8();
    pthread_setname_np(pthread_self(), name.constData());

    std::unique_lock lock(_mutex);
    for (;;) {
        _changed.wait(lock, [this] { return _isEnding || !_blocks.empty(); });
        if (_isEnding) return;
        auto block = std::move(_blocks.front());
        _blocks.pop_front();
        _isRunningBlock = true;
        lock.unlock();
        block();
        block = nullptr; // What the block holds goes before the queue counts as idle.
        lock.lock();
        _isRunningBlock = false;
        _changed.notify_all();
    }
}
