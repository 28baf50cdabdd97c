#include "platform/KVConditionLock.h"

void KVConditionLock::lock() {
    std::unique_lock guard(_mutex);
    _changed.wait(guard, [this] { return !_isLocked; });
    _isLocked = true;
}

void KVConditionLock::lockWhenCondition(int condition) {
    std::unique_lock guard(_mutex);
    _changed.wait(guard, [&] { return !_isLocked && _condition == condition; });
    _isLocked = true;
}

void KVConditionLock::unlock() {
    const std::scoped_lock guard(_mutex);
    _isLocked = false;
    _changed.notify_all();
}

void KVConditionLock::unlockWithCondition(int condition) {
    const std::scoped_lock guard(_mutex);
    _condition = condition;
    _isLocked = false;
    _changed.notify_all();
}

int KVConditionLock::condition() const {
    const std::scoped_lock guard(_mutex);
    return _condition;
}
