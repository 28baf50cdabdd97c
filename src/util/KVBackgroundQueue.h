#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

/// Work that nobody waits for, in the order in which it was handed over, on a bounded number of threads of
/// its own. A thread starts when there is work for it, sleeps when there is none and lives until `finish`, so
/// that a child process which is tied to the thread that launched it is safe here. Any thread may call it.
class KVBackgroundQueue {
  public:
    /// The token tells a running piece of work that it is no longer wanted.
    using Work = std::function<void(std::stop_token)>;

    /// The program's own queue: two threads. It finishes with the application object.
    static KVBackgroundQueue &shared();

    explicit KVBackgroundQueue(std::size_t maximumNumberOfThreads);
    ~KVBackgroundQueue() { finish(); }
    KVBackgroundQueue(const KVBackgroundQueue &) = delete;
    KVBackgroundQueue &operator=(const KVBackgroundQueue &) = delete;

    /// Hands over `work`; nothing happens after `finish`.
    void async(Work work);

    /// While held, nothing begins that has not begun: what somebody waits for has the processors to itself.
    void setIsHeld(bool isHeld);

    /// Drops what waits, asks what runs to stop, and waits for it. Not from a piece of work.
    void finish();

  private:
    void _run(const std::stop_token &stop);

    const std::size_t _maximumNumberOfThreads;
    std::mutex _mutex;
    std::condition_variable_any _changed;
    std::deque<Work> _waiting;
    std::vector<std::jthread> _threads;
    std::size_t _idleThreads = 0;
    bool _isHeld = false;
    bool _isFinished = false;
};
