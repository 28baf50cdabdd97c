#pragma once

#include <QList>

#include <memory>

class KVConversion;

/// Where a dragged row is let go, relative to a row of the table.
enum class KVDropOperation { on, above };

/// What the queue table's controller asks of whatever shows it. Called on the main thread. Row changes are
/// told after the queue has changed, except for removals, which are told just before.
class KVQueueTableView {
  public:
    virtual ~KVQueueTableView() = default;

    virtual void insertTableRows(int first, int count) = 0;
    virtual void removeTableRows(int first, int count) = 0;
    /// The rows `first` to `first + count - 1` have changed places among each other.
    virtual void reorderTableRows(int first, int count) = 0;
    virtual void reloadData() = 0;
    /// The title and the thumbnails of one row changed.
    virtual void reloadRow(int row) = 0;
    /// Plays the finish animation of a row and then hides its progress.
    virtual void animateFinishedConversion(int row) = 0;
    /// The drop zone that awaits files stands in place of the table.
    virtual void showDropZone(bool isAwaitingFiles) = 0;

    int draggedRow = -1; ///< The row that is being dragged; -1 when none is.
    /// The rows that go along with it, itself included, in the order of the table; empty for it alone.
    QList<std::shared_ptr<KVConversion>> draggedConversions;
};
