#pragma once

#include "conversion/conversions/KVConversion.h"

#include <QUrl>

#include <memory>
#include <optional>
#include <vector>

/// What the user has chosen for a row: its files with their subtitles, its preset and its names. Enough to
/// put the row back or to make it anew. Main thread only.
class KVRowMemo {
  public:
    using Row = std::shared_ptr<KVConversion>;

    explicit KVRowMemo(const Row &row);

    const Row &row() const { return _row; }
    /// Gives `row` back what it had, and notifies its delegates. The row can be changed.
    void restore(const Row &row) const;
    /// Returns a row to put into the queue: the same object if it has finished, otherwise a new conversion
    /// that waits.
    Row rowToInsert() const;

  private:
    struct Subtitles {
        std::optional<QUrl> url;
        QString encoding;
        std::optional<QUrl> unreadableURL; ///< Of subtitles that are not used.
    };

    void _fill(const Row &row) const;

    Row _row;
    bool _hadFinished = false;
    KVMediaFileList _files;
    std::vector<Subtitles> _subtitles; ///< One for each file.
    std::shared_ptr<KVPreset> _customPreset;
    std::optional<QString> _outputFileName;
    std::optional<QUrl> _destinationFolder;
    std::optional<QString> _dvdName; ///< Empty if it is no conversion of a video.
};
