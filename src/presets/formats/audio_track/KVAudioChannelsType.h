#pragma once

#include <QtGlobal>

#include <optional>

/// The channels that a person chose. The raw values are persisted.
enum class KVAudioChannelsType { asSource = 0, mono = 1, stereo = 2, surround = 6 };

/// Nothing for a number that is no case.
std::optional<KVAudioChannelsType> KVAudioChannelsTypeFromRawValue(qint64 rawValue);
