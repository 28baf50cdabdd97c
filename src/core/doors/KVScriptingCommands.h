#pragma once

#include "util/KVMediaFileType.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

class KVConversionQueue;

/// Which queues a script means: four characters as a big-endian number.
enum class KVAppleScriptQueueType : quint32 {
    audio = 0x51754175,   ///< "QuAu"
    video = 0x51755669,   ///< "QuVi"
    picture = 0x51755069, ///< "QuPi"
    dvd = 0x51445644,     ///< "QDVD"
    all = 0x51416C6C,     ///< "QAll"
};

/// What a script can ask of the queues. Each answers whether it did anything. Main thread.
namespace KVScriptingCommands {

/// An unknown code means all.
KVAppleScriptQueueType queueType(quint32 code);
/// In the order of all types.
std::vector<std::shared_ptr<KVConversionQueue>> queues(KVAppleScriptQueueType type);

/// Resumes what is paused and starts what waits.
bool start(KVAppleScriptQueueType type);
bool pause(KVAppleScriptQueueType type);
/// For the queues that the preset fits; an audio preset fits a video queue too, whose videos then become
/// sound.
bool selectPreset(const QString &presetName, KVAppleScriptQueueType type);

} // namespace KVScriptingCommands
