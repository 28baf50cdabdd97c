#pragma once

#include <condition_variable>
#include <mutex>

/// A lock with an integer condition that can be waited for and read by anyone.
class KVConditionLock {
  public:
    explicit KVConditionLock(int condition = 0)
        : _condition(condition) {}

    void lock();
    /// Waits until the condition has this value, then takes the lock.
    void lockWhenCondition(int condition);
    void unlock();
    /// Releases the lock with a new condition.
    void unlockWithCondition(int condition);
    /// The present condition; does not need the lock.
    int condition() const;

  private:
    mutable std::mutex _mutex;
    std::condition_variable _changed;
    bool _isLocked = false;
    int _condition;
};
