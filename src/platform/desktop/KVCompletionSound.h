#pragma once

#include "kvcore/KVSerialQueue.h"

#include <condition_variable>
#include <mutex>

struct ca_context;

/// The sound theme's event for something that is complete. The sound server is asked on a thread of its own;
/// where there is none, nothing is heard. Main thread.
class KVCompletionSound {
  public:
    KVCompletionSound() = default;
    /// Lets a sound that plays come to its end, within a moment: the program may end because the work has.
    ~KVCompletionSound();
    KVCompletionSound(const KVCompletionSound &) = delete;
    KVCompletionSound &operator=(const KVCompletionSound &) = delete;

    void play();

  private:
    void _playNow();
    void _soundEnded();

    ca_context *_context = nullptr; ///< Of the queue's thread.
    std::mutex _mutex;
    std::condition_variable _changed;
    int _numberOfSounds = 0; ///< That play or are about to.
    KVSerialQueue _queue{QStringLiteral("com.brenholt.Kalvora.sound")};
};
