#include "core/doors/KVScriptingCommands.h"

#include "core/KVQueueNotifications.h"
#include "queues/KVRowEdits.h"

namespace {

void tellQueueWasAffected() {
    KVNotificationCenter::defaultCenter().post(ConversionQueueWasAffectedByAppleScript,
                                               std::shared_ptr<void>());
}

bool fits(const KVPreset &preset, KVMediaFileType type) {
    return preset.presetType() == type ||
           (preset.presetType() == KVMediaFileType::audio && type == KVMediaFileType::video);
}

} // namespace

KVAppleScriptQueueType KVScriptingCommands::queueType(quint32 code) {
    switch (const auto type = static_cast<KVAppleScriptQueueType>(code); type) {
    case KVAppleScriptQueueType::audio:
    case KVAppleScriptQueueType::video:
    case KVAppleScriptQueueType::picture:
    case KVAppleScriptQueueType::dvd:
        return type;
    case KVAppleScriptQueueType::all:
        break;
    }
    return KVAppleScriptQueueType::all;
}

std::vector<std::shared_ptr<KVConversionQueue>> KVScriptingCommands::queues(KVAppleScriptQueueType type) {
    switch (type) {
    case KVAppleScriptQueueType::audio:
        return {KVConversionQueue::queue(KVMediaFileType::audio)};
    case KVAppleScriptQueueType::video:
        return {KVConversionQueue::queue(KVMediaFileType::video)};
    case KVAppleScriptQueueType::picture:
        return {KVConversionQueue::queue(KVMediaFileType::picture)};
    case KVAppleScriptQueueType::dvd:
        return {KVConversionQueue::queue(KVMediaFileType::dvd)};
    case KVAppleScriptQueueType::all:
        break;
    }
    return KVConversionQueue::allQueues();
}

bool KVScriptingCommands::start(KVAppleScriptQueueType type) {
    bool hasDoneAnything = false;
    for (const auto &queue : queues(type)) {
        for (const auto &conversion : queue->conversions()) {
            if (conversion->state != KVConversionState::paused) continue;
            conversion->resume();
            tellQueueWasAffected();
            hasDoneAnything = true;
        }
        if (queue->numberOfFilesWaitingToBeConverted() > 0 && !queue->isWorking()) {
            queue->start();
            hasDoneAnything = true;
        }
    }
    return hasDoneAnything;
}

bool KVScriptingCommands::pause(KVAppleScriptQueueType type) {
    bool hasPausedAnything = false;
    for (const auto &queue : queues(type)) {
        for (const auto &conversion : queue->conversions()) {
            if (conversion->state != KVConversionState::executing) continue;
            conversion->pause();
            tellQueueWasAffected();
            hasPausedAnything = true;
        }
    }
    return hasPausedAnything;
}

bool KVScriptingCommands::selectPreset(const QString &presetName, KVAppleScriptQueueType type) {
    bool isSelectedAnywhere = false;
    for (const auto &queue : queues(type)) {
        const auto preset = KVPreset::presetNamed(presetName);
        if (!preset || !fits(*preset, queue->mediaFileType())) continue;
        if (KVRowEdits::breaksMerges(*queue, *preset)) continue;
        queue->setSelectedPreset(preset);
        tellQueueWasAffected();
        isSelectedAnywhere = true;
    }
    return isSelectedAnywhere;
}
