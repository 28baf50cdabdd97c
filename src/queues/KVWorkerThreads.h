#pragma once

#include <functional>
#include <memory>

/// Threads of which each lives for one piece of work and is joined, on the main thread, as soon as that has
/// ended. Any thread.
class KVWorkerThreads {
  public:
    KVWorkerThreads();
    KVWorkerThreads(const KVWorkerThreads &) = delete;
    KVWorkerThreads &operator=(const KVWorkerThreads &) = delete;

    void run(std::function<void()> work);

    /// True when all have ended and are joined.
    bool isEmpty() const;

  private:
    struct Private;
    std::shared_ptr<Private> _p; ///< Shared with the threads: whoever is last needs no owner any more.
};
