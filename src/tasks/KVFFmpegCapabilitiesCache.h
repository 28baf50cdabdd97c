#pragma once

#include "tasks/KVFFmpegCapabilities.h"

#include <map>
#include <mutex>
#include <optional>
#include <tuple>

/// Remembers what tools understand, in memory and (for the tool that was asked last) in a file of the user's
/// cache folder. A tool whose file has changed is asked anew. Any thread.
class KVFFmpegCapabilitiesCache {
  public:
    /// Never destroyed: a thread that ends with the process may still ask.
    static KVFFmpegCapabilitiesCache &shared();

    const KVFFmpegCapabilities &capabilities(const QString &toolPath);

    /// Where the answer is kept from one run of the program to the next.
    static QString filePath();

  private:
    /// What tells one state of one tool from another.
    struct Tool {
        QString path;
        qint64 size = 0;
        qint64 modified = 0; ///< Nanoseconds since 1970.

        bool operator==(const Tool &) const = default;
        bool operator<(const Tool &other) const {
            return std::tie(path, size, modified) < std::tie(other.path, other.size, other.modified);
        }
    };

    static std::optional<Tool> _toolAt(const QString &path);
    static KVFFmpegCapabilities _ask(const Tool &tool);
    static std::optional<KVFFmpegCapabilities> _read(const Tool &tool);
    static void _write(const Tool &tool, const KVFFmpegCapabilities &capabilities);

    std::mutex _mutex;
    std::map<Tool, KVFFmpegCapabilities> _known; // a map keeps its entries where they are
};
