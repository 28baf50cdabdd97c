#pragma once

#include <atomic>
#include <functional>
#include <optional>
#include <thread>

/// Receives SIGINT, SIGTERM and SIGHUP (where it is not ignored) on a thread of its own, so that they are
/// heard whatever the main thread does.
///
/// The first one asks the main thread to end in an orderly way. A second one, or a program that has not ended
/// in time, ends the process at once with the status 128 + signal; children go with it.
class KVSignalWatcher {
  public:
    /// Made before other threads start: they must not receive these signals. `endOrderly` runs on the main
    /// thread, `beforeSuddenEnd` on the watcher's.
    KVSignalWatcher(std::function<void()> endOrderly, std::function<void()> beforeSuddenEnd);
    /// Later signals have their usual effect again.
    ~KVSignalWatcher();
    KVSignalWatcher(const KVSignalWatcher &) = delete;
    KVSignalWatcher &operator=(const KVSignalWatcher &) = delete;

    /// Ends the process as a second signal would: for work that does not let itself be ended.
    [[noreturn]] void endSuddenly() const;

    /// The first signal that came.
    std::optional<int> signal() const;

  private:
    void _run();

    const std::function<void()> _endOrderly;
    const std::function<void()> _beforeSuddenEnd;
    std::atomic<int> _signal = 0;
    std::atomic<bool> _isEnding = false;
    std::thread _thread;
};
