#pragma once

#include <QString>

#include <optional>

/// Reads how far `dvdauthor` is from what it prints. A rough measure: the first pass counts to 0.5 for the
/// first file and on for each further one, the second pass from 0.5 to 1.
struct KVDVDAuthoringProgress {
    qint64 currentFileSize = 0; ///< Whole megabytes.
    int currentFileIndex = -1;

    /// Takes in one chunk of output; the value that it tells, if it tells one.
    std::optional<double> value(const QString &chunk);
};
