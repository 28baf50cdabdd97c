#pragma once

#include <QString>

#include <array>
#include <optional>

/// What kind of file a media file is. The raw values are persisted.
enum class KVMediaFileType { none = 0, audio = 1, video = 2, picture = 3, dvd = 4 };

namespace KVMediaFileTypes {
inline constexpr std::array allTypes{KVMediaFileType::audio, KVMediaFileType::video, KVMediaFileType::picture,
                                     KVMediaFileType::dvd};

/// "None", "Audio", "Video", "Picture", "DVD" in the user's language.
QString localizedName(KVMediaFileType type);

/// The case's name: "none", "audio", "video", "picture", "dvd".
QString caseName(KVMediaFileType type);
std::optional<KVMediaFileType> fromCaseName(const QString &name);
} // namespace KVMediaFileTypes
