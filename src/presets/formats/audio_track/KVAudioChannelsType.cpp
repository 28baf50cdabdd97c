#include "presets/formats/audio_track/KVAudioChannelsType.h"

std::optional<KVAudioChannelsType> KVAudioChannelsTypeFromRawValue(qint64 rawValue) {
    for (const auto type : {KVAudioChannelsType::asSource, KVAudioChannelsType::mono,
                            KVAudioChannelsType::stereo, KVAudioChannelsType::surround})
        if (static_cast<qint64>(type) == rawValue) return type;
    return std::nullopt;
}
