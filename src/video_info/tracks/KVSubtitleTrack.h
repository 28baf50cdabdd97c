#pragma once

#include "kvcore/KVRegex.h"

#include <QString>

#include <optional>

/// A subtitle stream. A plain value.
struct KVSubtitleTrack {
    QString format;                   ///< "subrip"
    std::optional<QString> trackName; ///< The language.
    qint64 trackNumber = 0;           ///< Index of the stream in the container.

    /// Matches a stream line of a subtitle with a language; groups ID, LANG and FORMAT.
    static const KVRegex &lineRegex();

    QString description() const;

    bool operator==(const KVSubtitleTrack &) const = default;
};
