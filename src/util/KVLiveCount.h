#pragma once

#include <atomic>

/// Counts the objects of a class derived from it that live now, such as jobs that run side by side. Any
/// thread.
template <class Kind>
class KVLiveCount {
  public:
    KVLiveCount() { ++_count; }
    ~KVLiveCount() { --_count; }
    KVLiveCount(const KVLiveCount &) = delete;
    KVLiveCount &operator=(const KVLiveCount &) = delete;

    static int number() { return _count; }

  private:
    static inline std::atomic<int> _count = 0;
};
