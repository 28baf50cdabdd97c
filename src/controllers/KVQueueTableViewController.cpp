#include "controllers/KVQueueTableViewController.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVMainThread.h"
#include "queues/KVRowEdits.h"
#include "util/KVPreferenceKeys.h"

#include <algorithm>

namespace {

std::shared_ptr<KVConversionQueue> queueOf(KVMediaFileType type) {
    return KVConversionQueue::queue(type);
}

int numberOfConversions(KVMediaFileType type) {
    return int(queueOf(type)->conversions().size());
}

// The type under which a conversion stands in the table.
KVMediaFileType typeOf(const std::shared_ptr<KVConversion> &conversion) {
    const KVMediaFileList files = conversion->mediaFiles();
    if (files.isEmpty()) KVFatalError("Queue received a conversion with no media files");
    return files.first()->mediaFileType();
}

void requireMainThread() {
    if (!KVMainThread::isCurrent()) KVFatalError("Not delivering notification on main thread!");
}

} // namespace

KVQueueTableViewController::KVQueueTableViewController(KVQueueTableView &tableView)
    : _tableView(tableView) {
    auto &center = KVNotificationCenter::defaultCenter();
    _observations.push_back(
        center.addObserver<KVConversion>(ConversionQueueDidAddConversion, [this](const auto &conversion) {
            _queueDidAddConversion(conversion);
        }));
    _observations.push_back(
        center.addObserver<KVConversion>(ConversionQueueWillRemoveConversion, [this](const auto &conversion) {
            _queueWillRemoveConversion(conversion);
        }));
    _observations.push_back(center.addObserver<KVConversion>(
        ConversionDidFinish, [this](const auto &conversion) { _queueDidFinishConversion(conversion); }));
    _observations.push_back(center.addObserver<KVConversionQueue>(
        ConversionQueueDidReorder, [this](const auto &queue) { _queueDidReorder(queue); }));
}

int KVQueueTableViewController::numberOfRows() const {
    int rows = 0;
    for (const KVMediaFileType type : groupOrder)
        rows += rangeOfRows(type).length;
    return rows;
}

KVQueueTableViewController::Range KVQueueTableViewController::rangeOfRows(KVMediaFileType type) const {
    int location = 0;
    for (const KVMediaFileType group : groupOrder) {
        const int conversions = numberOfConversions(group);
        const int length = conversions > 0 ? conversions + 1 : 0;
        if (group == type) return {location, length};
        location += length;
    }
    KVLog("Unknown file type " + KVMediaFileTypes::caseName(type));
    return {-1, 0};
}

KVMediaFileType KVQueueTableViewController::mediaType(int row) const {
    for (const KVMediaFileType type :
         {KVMediaFileType::video, KVMediaFileType::audio, KVMediaFileType::picture}) {
        const auto [location, length] = rangeOfRows(type);
        if (row - location < length) return type;
    }
    return KVMediaFileType::dvd;
}

bool KVQueueTableViewController::isGroupRow(int row) const {
    return std::ranges::any_of(groupOrder, [&](KVMediaFileType type) {
        const Range range = rangeOfRows(type);
        return range.length > 0 && range.location == row;
    });
}

std::shared_ptr<KVConversion> KVQueueTableViewController::conversion(int row) const {
    if (row < 0 || isGroupRow(row)) return nullptr;
    const KVMediaFileType type = mediaType(row);
    const auto conversions = queueOf(type)->conversions();
    const int index = row - rangeOfRows(type).location - 1;
    return index >= 0 && index < conversions.size() ? conversions.at(index) : nullptr;
}

int KVQueueTableViewController::row(const std::shared_ptr<KVConversion> &conversion) const {
    const KVMediaFileType type = typeOf(conversion);
    const auto index = queueOf(type)->conversions().indexOf(conversion);
    return index < 0 ? -1 : rangeOfRows(type).location + 1 + int(index);
}

bool KVQueueTableViewController::canDragRow(int row) const {
    return conversion(row) != nullptr;
}

bool KVQueueTableViewController::validateDrop(int row, KVDropOperation operation) const {
    const auto isLocation = [&](KVMediaFileType type) { return rangeOfRows(type).location == row; };
    if (row < 0 || std::ranges::any_of(groupOrder, isLocation)) return false;

    const int draggedRow = _tableView.draggedRow;
    if (draggedRow < 0) return false; // it has been removed meanwhile
    const KVMediaFileType type = mediaType(row);
    KVLog(QStringLiteral("Trying to drop row %1 (%2) to row %3 (%4)")
              .arg(draggedRow)
              .arg(KVMediaFileTypes::caseName(mediaType(draggedRow)))
              .arg(row)
              .arg(KVMediaFileTypes::caseName(type)));
    if (type != mediaType(draggedRow) || row == draggedRow) return false;
    if (operation == KVDropOperation::above) return row != draggedRow + 1;
    return reasonAgainstMerge(row).isEmpty();
}

bool KVQueueTableViewController::validateDropAtEndOfGroup(int row) const {
    const auto dragged = conversion(_tableView.draggedRow);
    if (!dragged) return false;
    const auto [location, length] = rangeOfRows(mediaType(_tableView.draggedRow));
    return row == location + length &&
           _draggedConversions() !=
               queueOf(typeOf(dragged))->conversions().last(_draggedConversions().size());
}

QString KVQueueTableViewController::reasonAgainstMerge(int row) const {
    const auto rows = _rowsToMerge(row);
    return rows.isEmpty() ? QString() : KVRowEdits::reasonAgainstMerge(rows);
}

KVConversionQueue::List KVQueueTableViewController::_draggedConversions() const {
    const auto dragged = conversion(_tableView.draggedRow);
    if (!dragged) return {};
    const bool isAlone = !_tableView.draggedConversions.contains(dragged);
    auto along = isAlone ? KVConversionQueue::List{dragged} : _tableView.draggedConversions;
    along.removeIf([this](const auto &conversion) { return row(conversion) < 0; }); // removed meanwhile
    return along;
}

KVConversionQueue::List KVQueueTableViewController::_rowsToMerge(int row) const {
    const auto target = conversion(row);
    auto rows = _draggedConversions();
    if (!target || rows.isEmpty()) return {};
    rows.removeOne(target);
    rows.prepend(target);
    return rows;
}

bool KVQueueTableViewController::acceptDrop(int row, KVDropOperation operation) {
    if (operation == KVDropOperation::above)
        _reorder(row);
    else
        _merge(row);
    _tableView.draggedRow = -1;
    _tableView.draggedConversions.clear();
    return true;
}

void KVQueueTableViewController::updateVisibility() {
    _tableView.showDropZone(numberOfRows() == 0);
}

void KVQueueTableViewController::_queueDidAddConversion(const std::shared_ptr<KVConversion> &conversion) {
    requireMainThread();
    updateVisibility();
    const KVMediaFileType type = typeOf(conversion);
    const auto [location, length] = rangeOfRows(type);
    if (location < 0 || length == 0) {
        KVLog("Weird range, reloading data.");
        _tableView.reloadData();
        return;
    }
    const bool hasGroupJustAppeared = numberOfConversions(type) == 1;
    if (hasGroupJustAppeared)
        _insertRows(location, length);
    else
        _insertRows(row(conversion), 1);
}

void KVQueueTableViewController::_queueWillRemoveConversion(const std::shared_ptr<KVConversion> &conversion) {
    requireMainThread();
    const KVMediaFileType type = typeOf(conversion);
    const auto [location, length] = rangeOfRows(type);
    const auto index = queueOf(type)->conversions().indexOf(conversion);
    if (index < 0) return;
    if (length == 2)
        _removeRows(location, length);
    else
        _removeRows(location + int(index) + 1, 1);

    // The queue has not changed yet.
    KVMainThread::after(0.01, [this, isAlive = std::weak_ptr<bool>(_isAlive)] {
        if (isAlive.lock()) updateVisibility();
    });
}

void KVQueueTableViewController::_queueDidFinishConversion(const std::shared_ptr<KVConversion> &conversion) {
    requireMainThread();
    const int finishedRow = row(conversion);
    if (finishedRow < 0) return;
    _tableView.animateFinishedConversion(finishedRow);
    // A row that failed or has warnings stays, so that they can be read.
    if (!conversion->hasFailed() && conversion->warnings().isEmpty() &&
        KVPreferences::shared().boolean(KVPreferenceKeys::ClearFinishedItemsRightAway, false))
        queueOf(typeOf(conversion))->cancelConversion(conversion);
}

void KVQueueTableViewController::_insertRows(int first, int count) {
    if (_tableView.draggedRow >= first) _tableView.draggedRow += count;
    _tableView.insertTableRows(first, count);
}

void KVQueueTableViewController::_removeRows(int first, int count) {
    int &dragged = _tableView.draggedRow;
    if (dragged >= first) dragged = dragged < first + count ? -1 : dragged - count;
    _tableView.removeTableRows(first, count);
}

void KVQueueTableViewController::_reorder(int row) {
    const auto dragged = _draggedConversions();
    if (dragged.isEmpty()) return;
    const auto [location, length] = rangeOfRows(mediaType(_tableView.draggedRow));
    KVRowEdits::shared().move(dragged, row - location - 1);
}

void KVQueueTableViewController::_queueDidReorder(const std::shared_ptr<KVConversionQueue> &queue) {
    const auto [location, length] = rangeOfRows(queue->mediaFileType());
    if (length > 1) _tableView.reorderTableRows(location + 1, length - 1);
}

void KVQueueTableViewController::_merge(int row) {
    const auto rows = _rowsToMerge(row);
    if (KVRowEdits::shared().merge(rows)) _tableView.reloadRow(this->row(rows.first()));
}
