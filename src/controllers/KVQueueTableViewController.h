#pragma once

#include "controllers/KVQueueTableView.h"
#include "queues/KVConversionQueue.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

/// Shows the queues of all media types as one flat table: for each type with conversions, in the order video,
/// audio, picture, DVD, a group row and then one row per conversion. Holds no copy of the queues; every
/// question is answered from their present lists. Keeps the table in step with the queues' notifications and
/// decides what a drag of a row may do. Knows no widget. Main thread only.
class KVQueueTableViewController {
  public:
    static constexpr std::array groupOrder{KVMediaFileType::video, KVMediaFileType::audio,
                                           KVMediaFileType::picture, KVMediaFileType::dvd};
    static constexpr int groupRowHeight = 26;
    static constexpr int conversionRowHeight = 49;

    struct Range {
        int location = 0;
        int length = 0;
        bool operator==(const Range &) const = default;
    };

    /// The view outlives the controller.
    explicit KVQueueTableViewController(KVQueueTableView &tableView);

    int numberOfRows() const;
    /// The rows of a type, its group row first; an empty group has the location of the next one. Location -1
    /// for `none`.
    Range rangeOfRows(KVMediaFileType type) const;
    KVMediaFileType mediaType(int row) const;
    bool isGroupRow(int row) const;
    /// Null for a group row and outside of the table.
    std::shared_ptr<KVConversion> conversion(int row) const;
    /// -1 where the conversion is in no queue.
    int row(const std::shared_ptr<KVConversion> &conversion) const;
    int heightOfRow(int row) const { return isGroupRow(row) ? groupRowHeight : conversionRowHeight; }

    /// A group row cannot be dragged.
    bool canDragRow(int row) const;
    /// True where the dragged row may be let go there.
    bool validateDrop(int row, KVDropOperation operation) const;
    /// True if the dragged row may be let go behind the last row of its group; `row` is the first row behind
    /// the group. The same as two drops: above the last row, then the last row above it.
    bool validateDropAtEndOfGroup(int row) const;
    /// Why a drop onto this row does not merge, in the user's language; empty if it does or if no row is
    /// dragged.
    QString reasonAgainstMerge(int row) const;
    /// Reorders or merges; one of the validations has returned true. Ends the drag.
    bool acceptDrop(int row, KVDropOperation operation);

    /// Shows the table or, with nothing in any queue, the drop zone.
    void updateVisibility();

  private:
    void _queueDidAddConversion(const std::shared_ptr<KVConversion> &conversion);
    void _queueWillRemoveConversion(const std::shared_ptr<KVConversion> &conversion);
    void _queueDidFinishConversion(const std::shared_ptr<KVConversion> &conversion);
    /// Rows that come and go above the dragged one change its number.
    void _insertRows(int first, int count);
    void _removeRows(int first, int count);
    void _queueDidReorder(const std::shared_ptr<KVConversionQueue> &queue);
    KVConversionQueue::List _draggedConversions() const;
    /// The dragged rows become one with the conversion at `row`, which comes first.
    KVConversionQueue::List _rowsToMerge(int row) const;
    void _reorder(int row);
    void _merge(int row);

    KVQueueTableView &_tableView;
    std::shared_ptr<bool> _isAlive = std::make_shared<bool>(true); ///< For what the timer still holds.
    std::vector<KVNotificationCenter::Observation> _observations;
};
