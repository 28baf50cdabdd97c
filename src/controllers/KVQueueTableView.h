#pragma once

/// Where a dragged row is let go, relative to a row of the table.
enum class KVDropOperation { on, above };

/// What the queue table's controller asks of whatever shows it. Called on the main thread. Row changes are
/// told after the queue has changed, except for removals, which are told just before.
class KVQueueTableView {
  public:
    virtual ~KVQueueTableView() = default;

    virtual void insertTableRows(int first, int count) = 0;
    virtual void removeTableRows(int first, int count) = 0;
    /// `to` is the row's number after the move.
    virtual void moveRow(int from, int to) = 0;
    virtual void reloadData() = 0;
    /// The title and the thumbnails of one row changed.
    virtual void reloadRow(int row) = 0;
    /// Plays the finish animation of a row and then hides its progress.
    virtual void animateFinishedConversion(int row) = 0;
    /// The drop zone that awaits files stands in place of the table.
    virtual void showDropZone(bool isAwaitingFiles) = 0;

    int draggedRow = -1; ///< The row that is being dragged; -1 when none is.
};
