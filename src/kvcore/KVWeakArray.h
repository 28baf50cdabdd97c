#pragma once

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

/// A list of weak references, used for delegates: it keeps nobody alive, and the dead vanish from it.
/// All operations may be called from any thread. `allValues` hands out strong references, so that the caller
/// notifies with no lock held and a listener may add, remove or die meanwhile.
template <class T>
class KVWeakArray {
  public:
    void append(const std::shared_ptr<T> &value) {
        const std::scoped_lock lock(_mutex);
        _values.push_back(value);
    }

    void remove(const std::shared_ptr<T> &value) {
        const std::scoped_lock lock(_mutex);
        std::erase_if(_values, [&](const std::weak_ptr<T> &entry) {
            const auto alive = entry.lock();
            return !alive || alive == value;
        });
    }

    bool contains(const std::shared_ptr<T> &value) const {
        const auto values = allValues();
        return std::ranges::find(values, value) != values.end();
    }

    std::vector<std::shared_ptr<T>> allValues() const {
        const std::scoped_lock lock(_mutex);
        std::vector<std::shared_ptr<T>> alive;
        std::erase_if(_values, [&](const std::weak_ptr<T> &entry) {
            auto value = entry.lock();
            const bool isDead = !value;
            if (value) alive.push_back(std::move(value));
            return isDead;
        });
        return alive;
    }

  private:
    mutable std::mutex _mutex;
    mutable std::vector<std::weak_ptr<T>> _values;
};
