#pragma once

#include "presets/KVPreset.h"

#include <QUrl>

#include <memory>
#include <optional>

/// What a conversion works with once it runs: copies that are made on the main thread at its start and that
/// no other thread can change. The worker reads nothing else of the row, its preset and its queue.
struct KVConversionSnapshot {
    KVMediaFileList files; ///< Copies of the row's files with their selected tracks and subtitles.
    std::shared_ptr<KVPreset> preset;
    std::optional<QUrl> outputDirectoryURL; ///< The queue's fixed output folder.
    bool savesToSourceFolder = true;
    int numberOfTasks = 1;

    /// The fixed folder, otherwise the source's folder; empty if the preferences allow neither.
    std::optional<QUrl> fixedOrSourceFolder() const;
    /// The source's folder if the preferences say so, otherwise the fixed folder, if any.
    std::optional<QUrl> sourceOrFixedFolder() const;

  private:
    std::optional<QUrl> _sourceFolder() const;
};
