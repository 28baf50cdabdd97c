#include "platform/desktop/KVCompletionSound.h"

#include <canberra.h>

#include <chrono>

namespace {

constexpr std::chrono::milliseconds longestEcho(1500);

} // namespace

KVCompletionSound::~KVCompletionSound() {
    {
        std::unique_lock lock(_mutex);
        _changed.wait_for(lock, longestEcho, [this] { return _numberOfSounds == 0; });
    }
    _queue.waitUntilIdle();
    if (_context) ca_context_destroy(_context);
}

void KVCompletionSound::play() {
    {
        const std::scoped_lock lock(_mutex);
        ++_numberOfSounds;
    }
    _queue.async([this] { _playNow(); });
}

void KVCompletionSound::_playNow() {
    if (!_context && ca_context_create(&_context) != CA_SUCCESS) _context = nullptr;
    ca_proplist *properties = nullptr;
    int result = CA_ERROR_STATE;
    if (_context && ca_proplist_create(&properties) == CA_SUCCESS) {
        ca_proplist_sets(properties, CA_PROP_EVENT_ID, "complete");
        const auto ended = [](ca_context *, uint32_t, int, void *sound) {
            static_cast<KVCompletionSound *>(sound)->_soundEnded();
        };
        result = ca_context_play_full(_context, 0, properties, ended, this);
        ca_proplist_destroy(properties);
    }
    if (result != CA_SUCCESS) _soundEnded();
}

void KVCompletionSound::_soundEnded() {
    const std::scoped_lock lock(_mutex);
    --_numberOfSounds;
    _changed.notify_all();
}
