#include "kvcore/KVNotificationCenter.h"

KVNotificationCenter::Observation &
KVNotificationCenter::Observation::operator=(Observation &&other) noexcept {
    if (this == &other) return *this;
    end();
    _center = std::exchange(other._center, nullptr);
    _token = other._token;
    return *this;
}

void KVNotificationCenter::Observation::end() {
    if (auto *center = std::exchange(_center, nullptr)) center->_remove(_token);
}

KVNotificationCenter &KVNotificationCenter::defaultCenter() {
    // Never destroyed: an observation that lives in another static object may end after everything else.
    static auto *center = new KVNotificationCenter;
    return *center;
}

KVNotificationCenter::Observation KVNotificationCenter::_add(const char *name, const void *object,
                                                             Callback callback) {
    auto entry = std::make_shared<Entry>();
    entry->object = object;
    entry->callback = std::move(callback);
    const std::scoped_lock lock(_mutex);
    entry->token = ++_lastToken;
    _entries[name].push_back(entry);
    return {this, entry->token};
}

void KVNotificationCenter::_remove(quint64 token) {
    std::shared_ptr<Entry> removed; // what the observer holds goes after the lock
    const std::scoped_lock lock(_mutex);
    for (auto &[name, entries] : _entries) {
        const auto found = std::ranges::find(entries, token, [](const auto &entry) { return entry->token; });
        if (found == entries.end()) continue;
        removed = *found;
        removed->hasEnded = true;
        entries.erase(found);
        return;
    }
}

void KVNotificationCenter::_post(const char *name, const std::shared_ptr<void> &object) {
    std::vector<std::shared_ptr<Entry>> interested;
    {
        const std::scoped_lock lock(_mutex);
        const auto found = _entries.find(name);
        if (found == _entries.end()) return;
        std::ranges::copy_if(found->second, std::back_inserter(interested), [&](const auto &entry) {
            return !entry->object || entry->object == object.get();
        });
    }
    for (const auto &entry : interested)
        if (!entry->hasEnded) entry->callback(object);
}
