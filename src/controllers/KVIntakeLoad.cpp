#include "controllers/KVIntakeLoad.h"

#include "queues/KVConversionQueue.h"
#include "video_info/media_file/KVAudioFile.h"

#include <algorithm>
#include <chrono>

namespace {

/// So few files are looked at however long it takes.
constexpr int looksAtLeast = 6;

bool hasSeveralTracks(const std::shared_ptr<const KVMediaFile> &file) {
    const auto audio = std::dynamic_pointer_cast<const KVAudioFile>(file);
    return audio && audio->audioTracks.size() > 1 && !audio->isDRMProtected();
}

} // namespace

void KVIntakeLoad::expectFile(const QUrl &url) {
    const std::scoped_lock lock(_mutex);
    _files.push_back({url, nullptr});
}

void KVIntakeLoad::expectFolder() {
    const std::scoped_lock lock(_mutex);
    ++_numberOfFolders;
}

void KVIntakeLoad::lookAhead(const QUrl &url) {
    _ticketFor(url);
}

KVIntakeLoad::Ticket KVIntakeLoad::_ticketFor(const QUrl &url) {
    const std::scoped_lock lock(_mutex);
    const auto file = std::ranges::find(_files, url, &File::url);
    if (file == _files.end()) return nullptr;
    if (!file->ticket) file->ticket = _probeAhead.expect(url);
    return file->ticket;
}

KVIntakeLoad::Ticket KVIntakeLoad::beginFile(const QUrl &url) {
    const std::scoped_lock lock(_mutex);
    const auto file = std::ranges::find(_files, url, &File::url);
    if (file == _files.end()) return nullptr;
    auto ticket = std::move(file->ticket);
    _files.erase(file);
    return ticket;
}

void KVIntakeLoad::beginFolder() {
    const std::scoped_lock lock(_mutex);
    --_numberOfFolders;
}

KVIntakeLoad::Following KVIntakeLoad::filesWithSeveralTracks(double seconds) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    QList<QUrl> urls;
    Following following;
    {
        const std::scoped_lock lock(_mutex);
        for (const File &file : _files)
            urls.append(file.url);
        following.isComplete = _numberOfFolders == 0;
    }
    int numberOfLooks = 0;
    for (const QUrl &url : urls) {
        if (KVConversionQueue::anyQueueContainsMedia(url)) continue;
        if (numberOfLooks++ >= looksAtLeast && Clock::now() >= end) return {following.numberOfFiles, false};
        // Its turn may come on another thread meanwhile.
        if (const auto ticket = _ticketFor(url))
            following.numberOfFiles += hasSeveralTracks(_probeAhead.peek(ticket));
    }
    return following;
}

std::optional<KVAudioTrackChoice> KVIntakeLoad::trackChoice() const {
    const std::scoped_lock lock(_mutex);
    return _trackChoice;
}

void KVIntakeLoad::setTrackChoice(const KVAudioTrackChoice &choice) {
    const std::scoped_lock lock(_mutex);
    _trackChoice = choice;
}
