#pragma once

#include "queues/KVConversionQueue.h"
#include "queues/KVRowMemo.h"

#include <QHash>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// Posted on the main thread, with the queue, after its rows have changed places.
inline constexpr KVNotificationName<KVConversionQueue> ConversionQueueDidReorder{
    "KVConversionQueueDidReorderNotification"};

/// Changes the rows of the queues as the user wants it: the one place for merging, splitting, removing,
/// presets, names, subtitles and order. Only waiting rows are changed; every row can be removed. Every
/// operation notifies the delegates and pushes a step on KVUndoStack. What is refused changes nothing. Main
/// thread only.
class KVRowEdits {
  public:
    using Row = std::shared_ptr<KVConversion>;
    using Rows = QList<Row>;
    using Preset = std::shared_ptr<KVPreset>;

    static KVRowEdits &shared();

    /// Why the row's files, subtitles and preset cannot be changed, in the user's language; empty if they
    /// can.
    static QString reasonAgainstChange(const KVConversion &row);
    /// Why the rows cannot become one, in the user's language; empty if they can. The first row's preset
    /// counts.
    static QString reasonAgainstMerge(const Rows &rows);
    /// Why the row cannot have this preset, in the user's language; empty if it can. Null is the queue's
    /// preset.
    static QString reasonAgainstPreset(const KVConversion &row, const Preset &preset);
    /// True if a waiting row that follows the queue's preset merges files and this preset cannot.
    static bool breaksMerges(const KVConversionQueue &queue, const KVPreset &preset);
    /// The waiting rows of a queue that no worker has claimed.
    static Rows waitingRows(const KVConversionQueue &queue);

    /// Appends the files of all rows to the first one, and removes the others.
    bool merge(const Rows &rows);
    /// Makes one row of the waiting ones, in each queue where that is possible.
    bool mergeAll();
    /// Makes one row for each file of a merged row.
    bool splitAgain(const Row &row);
    bool removeFile(const Row &row, const std::shared_ptr<KVMediaFile> &file);
    /// Removes rows in any state; running ones are cancelled.
    void remove(const Rows &rows);
    /// The same under the title "Clear".
    void clear(const Rows &rows);
    /// Removes rows whose files are about to be added as new rows; undoing it removes the new rows that wait.
    void removeToAddAgain(const Rows &rows);
    /// Sets the rows' own preset; null for the queue's. Skips rows that cannot have it.
    bool setPreset(const Rows &rows, const Preset &preset);
    /// Merges the rows and gives the result the preset that authors a disc.
    bool makeDVD(const Rows &rows);
    /// Moves rows of one queue before the row that is at `index` now; the number of rows moves them to the
    /// end. They keep their order.
    bool move(const Rows &rows, qsizetype index);
    bool setOutputFileName(const Row &row, const std::optional<QString> &name);
    bool setDVDName(const Row &row, const QString &name);
    /// Sets the subtitles of the row's first file; without a URL removes them.
    bool setSubtitles(const Row &row, const std::optional<QUrl> &url,
                      const QString &encoding = QStringLiteral("UTF-8"));

  private:
    using Queue = std::shared_ptr<KVConversionQueue>;
    /// What one queue was before an operation: undone as a whole or not at all.
    struct Before {
        Queue queue;
        Rows order;
        std::vector<KVRowMemo> changed = {};
        std::vector<KVRowMemo> removed = {};
        Rows added = {};
        bool isReordered = false;
        bool isAddedAgain = false;                     ///< The files of `removed`, as new rows.
        std::shared_ptr<KVMediaFile> removedFile = {}; ///< Taken out of the row in `changed`.
        Preset presetOfRemovedFile = {};
    };
    using Steps = std::vector<Before>;

    static Before _before(const Row &row, bool isChanged);
    std::optional<Before> _merge(const Rows &rows, const Preset &preset = nullptr);
    bool _change(const Row &row, const char *title, const std::function<void()> &change);
    static std::pair<Steps, qsizetype> _remove(const Rows &rows);
    void _pushRemoval(const char *title, Steps steps, qsizetype removed);
    void _push(const QString &title, const QString &message, Steps steps);
    bool _undo(const Before &before);
    void _insertRemoved(const Before &before);
    void _restoreOrder(const Before &before);
    Rows _waitingRowsOfRemovedFiles(const Before &before) const;
    bool _insertRemovedFile(const Before &before);
    Row _present(const Row &row) const;

    /// Rows that were made anew, by the row that they replace. Emptied with the steps that know them.
    QHash<Row, Row> _successors;
};
