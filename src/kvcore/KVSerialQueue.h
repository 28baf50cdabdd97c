#pragma once

#include <QString>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// Runs blocks one after the other on a thread of its own, which the first block starts. Any thread may call
/// it.
class KVSerialQueue {
  public:
    explicit KVSerialQueue(QString label);

    /// Drops the blocks that have not begun and waits for the one that has. That block must not wait for the
    /// calling thread.
    ~KVSerialQueue();
    KVSerialQueue(const KVSerialQueue &) = delete;
    KVSerialQueue &operator=(const KVSerialQueue &) = delete;

    /// Hands `block` over; never waits.
    void async(std::function<void()> block);

    /// Drops the blocks that have not begun.
    void removeAll();

    /// True when no block runs and none waits.
    bool isIdle() const;

    /// Not on the queue's own thread, nor where a block waits for the calling thread.
    void waitUntilIdle();

  private:
    void _run();

    const QString _label;
    mutable std::mutex _mutex;
    std::condition_variable _changed;
    std::deque<std::function<void()>> _blocks;
    bool _isRunningBlock = false;
    bool _isEnding = false;
    std::thread _thread;
};
