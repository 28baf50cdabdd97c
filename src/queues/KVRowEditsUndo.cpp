#include "queues/KVRowEdits.h"

#include <QSet>

#include <algorithm>

// How edits of rows are undone.

/// Undoes a part as a whole: not at all if a row that it changed has started or gone since.
bool KVRowEdits::_undo(const Before &before) {
    Rows involved;
    for (const KVRowMemo &memo : before.changed)
        involved += _present(memo.row());
    for (const Row &added : before.added)
        involved += _present(added);
    const bool isUndone = before.queue->edit(involved, [&] {
        for (const Row &added : before.added)
            before.queue->cancelConversion(_present(added));
        if (before.isAddedAgain)
            for (const Row &again : _waitingRowsOfRemovedFiles(before))
                before.queue->cancelConversion(again);
        for (const KVRowMemo &memo : before.changed)
            memo.restore(_present(memo.row()));
        _insertRemoved(before);
        if (before.isReordered) _restoreOrder(before);
    });
    return isUndone || _insertRemovedFile(before);
}

/// The rows that were made of the files of removed rows since.
KVRowEdits::Rows KVRowEdits::_waitingRowsOfRemovedFiles(const Before &before) const {
    QSet<QUrl> removed;
    for (const KVRowMemo &memo : before.removed)
        for (const auto &file : memo.row()->mediaFiles())
            removed += file->url();
    QSet<Row> known;
    for (const Row &row : before.order)
        known += _present(row);
    Rows rows = waitingRows(*before.queue);
    rows.removeIf([&](const Row &row) {
        const auto wasRemoved = [&](const auto &file) { return removed.contains(file->url()); };
        return known.contains(row) || !std::ranges::all_of(row->mediaFiles(), wasRemoved);
    });
    return rows;
}

/// A row that has started without a file does not get it back: the file gets a row behind it.
bool KVRowEdits::_insertRemovedFile(const Before &before) {
    const auto &file = before.removedFile;
    if (!file || KVConversionQueue::anyQueueContainsMedia(file->url())) return false;
    const Row row = before.queue->createConversion(file, before.presetOfRemovedFile, false);
    const auto rows = before.queue->conversions();
    const qsizetype place = rows.indexOf(_present(before.changed.front().row()));
    before.queue->insertConversion(row, place < 0 ? rows.size() : place + 1);
    return true;
}

/// Puts each row behind the one that it followed.
void KVRowEdits::_insertRemoved(const Before &before) {
    QHash<const KVConversion *, const KVRowMemo *> removed;
    for (const KVRowMemo &memo : before.removed)
        removed.insert(memo.row().get(), &memo);
    const Rows atFirst = before.queue->conversions();
    const QSet<Row> present(atFirst.begin(), atFirst.end());
    Row last;            // the nearest row above that is in the queue
    qsizetype place = 0; // behind it
    bool isPlaceKnown = true;
    for (const Row &row : before.order) {
        const Row now = _present(row);
        const KVRowMemo *const memo = removed.value(row.get());
        if (memo && !present.contains(now)) {
            if (!isPlaceKnown) place = before.queue->conversions().indexOf(last) + 1;
            const Row again = memo->rowToInsert();
            if (again != row) _successors.insert(row, again);
            before.queue->insertConversion(again, place);
            last = again;
            ++place;
            isPlaceKnown = true;
        } else if (present.contains(now)) {
            last = now;
            isPlaceKnown = false;
        }
    }
}

/// Rows that came later keep their places.
void KVRowEdits::_restoreOrder(const Before &before) {
    Rows present = before.queue->conversions();
    const QSet<Row> rows(present.begin(), present.end());
    Rows wanted;
    for (const Row &row : before.order)
        if (const Row now = _present(row); rows.contains(now)) wanted += now;
    const QSet<Row> known(wanted.begin(), wanted.end());
    auto next = wanted.cbegin();
    for (Row &row : present)
        if (known.contains(row)) row = *next++;
    before.queue->setConversions(present);
    KVNotificationCenter::defaultCenter().post(ConversionQueueDidReorder, before.queue);
}

KVRowEdits::Row KVRowEdits::_present(const Row &row) const {
    Row present = row;
    while (const Row next = _successors.value(present))
        present = next;
    return present;
}
