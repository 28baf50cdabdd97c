#pragma once

#include <QString>

#include <optional>

namespace KVWaveHeader {

/// The duration in seconds that the header of a WAV file states. Empty if the file holds all that its header
/// promises, if the header leaves the length open or if this is no WAV file. Reads the headers only.
std::optional<double> statedSeconds(const QString &path);

} // namespace KVWaveHeader
