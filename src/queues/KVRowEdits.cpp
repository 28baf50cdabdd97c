#include "queues/KVRowEdits.h"

#include "conversion/conversions/KVVideoConversion.h"
#include "core/KVUndoStack.h"
#include "kvcore/KVLocalizationCenter.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QSet>

#include <algorithm>

namespace {

using Row = KVRowEdits::Row;
using Rows = KVRowEdits::Rows;

std::shared_ptr<KVConversionQueue> queueOfRow(const Row &row) {
    return std::dynamic_pointer_cast<KVConversionQueue>(row->queue());
}

QString counted(const char *one, const char *several, qsizetype number) {
    return number == 1 ? KVLocalizationCenter::localized(one)
                       : KVLocalizationCenter::localized(several, {number});
}

void notifyOfFiles(const Row &row) {
    for (const auto &delegate : row->delegates().allValues())
        delegate->conversionDidUpdateFiles(row);
}

void notifyOfPreset(const Row &row) {
    for (const auto &delegate : row->delegates().allValues())
        delegate->conversionDidChangePreset(row);
}

void setFiles(const Row &row, const KVMediaFileList &files) {
    row->setMediaFiles(files);
    notifyOfFiles(row);
}

} // namespace

KVRowEdits &KVRowEdits::shared() {
    static KVRowEdits edits;
    return edits;
}

// The rules

QString KVRowEdits::reasonAgainstChange(const KVConversion &row) {
    if (row.canBeChanged()) return {};
    switch (row.state.load()) {
    case KVConversionState::finished:
        return KVLocalizationCenter::localized("This conversion has ended.");
    case KVConversionState::paused:
        return KVLocalizationCenter::localized(
            "This conversion is paused. Its files, subtitles and preset can no longer be changed.");
    case KVConversionState::waitingToStart:
    case KVConversionState::executing:
        break;
    }
    return KVLocalizationCenter::localized(
        "This conversion is running. Its files, subtitles and preset can no longer be changed.");
}

QString KVRowEdits::reasonAgainstMerge(const Rows &rows) {
    const auto localized = [](const char *key) { return KVLocalizationCenter::localized(key); };
    if (rows.size() < 2) return localized("There is nothing to merge with.");
    const auto queue = queueOfRow(rows.first());
    const auto isElsewhere = [&](const Row &row) { return queueOfRow(row) != queue; };
    if (!queue || std::ranges::any_of(rows, isElsewhere))
        return localized("Only conversions of one media type can be merged.");
    if (queue->mediaFileType() == KVMediaFileType::picture) return localized("Pictures cannot be merged.");
    if (queue->mediaFileType() == KVMediaFileType::dvd) return localized("DVDs cannot be merged.");
    if (!std::ranges::all_of(rows, [](const Row &row) { return row->canBeChanged(); }))
        return localized("Only waiting conversions can be merged.");
    const auto preset = rows.first()->presetInForce();
    if (!preset->supportsStitching())
        return KVLocalizationCenter::localized("The preset \"%@\" cannot merge several files into one.",
                                               {preset->name});
    return {};
}

QString KVRowEdits::reasonAgainstPreset(const KVConversion &row, const Preset &preset) {
    if (QString reason = reasonAgainstChange(row); !reason.isEmpty()) return reason;
    const auto queue = row.queue();
    const auto inForce = preset ? preset : queue ? queue->selectedPreset() : nullptr;
    if (!inForce || inForce->supportsStitching() || row.mediaFiles().size() < 2) return {};
    return KVLocalizationCenter::localized("The preset \"%@\" cannot merge several files into one.",
                                           {inForce->name});
}

bool KVRowEdits::breaksMerges(const KVConversionQueue &queue, const KVPreset &preset) {
    if (preset.supportsStitching()) return false;
    return std::ranges::any_of(queue.conversions(), [](const Row &row) {
        return row->state == KVConversionState::waitingToStart && row->mediaFiles().size() > 1 &&
               !row->customPreset();
    });
}

KVRowEdits::Rows KVRowEdits::waitingRows(const KVConversionQueue &queue) {
    Rows rows = queue.conversions();
    rows.removeIf([](const Row &row) { return !row->canBeChanged(); });
    return rows;
}

// Merging and splitting

bool KVRowEdits::merge(const Rows &rows) {
    auto before = _merge(rows);
    if (!before) return false;
    _push(KVLocalizationCenter::localized("Merge"),
          KVLocalizationCenter::localized("%@ conversions merged into one", {rows.size()}),
          {std::move(*before)});
    return true;
}

bool KVRowEdits::mergeAll() {
    Steps steps;
    qsizetype merged = 0;
    for (const auto &queue : KVConversionQueue::allQueues()) {
        const Rows rows = waitingRows(*queue);
        auto before = _merge(rows);
        if (!before) continue;
        merged += rows.size();
        steps.push_back(std::move(*before));
    }
    if (steps.empty()) return false;
    const char *const message =
        steps.size() == 1 ? "%@ conversions merged into one" : "%@ conversions merged";
    _push(KVLocalizationCenter::localized("Merge All"), KVLocalizationCenter::localized(message, {merged}),
          std::move(steps));
    return true;
}

/// With a preset gives the result that one, and does not ask the one in force.
std::optional<KVRowEdits::Before> KVRowEdits::_merge(const Rows &rows, const Preset &preset) {
    if (!preset && !reasonAgainstMerge(rows).isEmpty()) return std::nullopt;
    const Row &keeper = rows.first();
    const Rows others = rows.mid(1);
    Before before = _before(keeper, true);
    KVMediaFileList files = keeper->mediaFiles();
    for (const Row &other : others) {
        files += other->mediaFiles();
        before.removed.emplace_back(other);
    }
    const bool isDone = before.queue->edit(rows, [&] {
        if (!others.isEmpty()) setFiles(keeper, files);
        if (preset) {
            keeper->setCustomPreset(preset);
            notifyOfPreset(keeper);
        }
        for (const Row &other : others)
            before.queue->cancelConversion(other);
    });
    if (!isDone) return std::nullopt;
    return before;
}

bool KVRowEdits::makeDVD(const Rows &rows) {
    const auto preset = KVPreset::presetNamed("DVD");
    const bool areVideos = std::ranges::all_of(rows, [](const Row &row) {
        const auto queue = queueOfRow(row);
        return queue && queue->mediaFileType() == KVMediaFileType::video;
    });
    if (!preset || rows.isEmpty() || !areVideos) return false;
    auto before = _merge(rows, preset);
    if (!before) return false;
    const QString message =
        rows.size() > 1 ? KVLocalizationCenter::localized("%@ conversions made into one disc", {rows.size()})
                        : QString();
    _push(KVLocalizationCenter::localized("Make DVD"), message, {std::move(*before)});
    return true;
}

bool KVRowEdits::splitAgain(const Row &row) {
    const KVMediaFileList files = row->mediaFiles();
    if (files.size() < 2) return false;
    Before before = _before(row, true);
    const bool isDone = before.queue->edit({row}, [&] {
        setFiles(row, files.first(1));
        qsizetype place = before.order.indexOf(row);
        for (const auto &file : files.mid(1)) {
            const Row part = before.queue->createConversion(file, row->customPreset(), false);
            before.queue->insertConversion(part, ++place);
            before.added += part;
        }
    });
    if (isDone) _push(KVLocalizationCenter::localized("Split"), {}, {std::move(before)});
    return isDone;
}

bool KVRowEdits::removeFile(const Row &row, const std::shared_ptr<KVMediaFile> &file) {
    KVMediaFileList files = row->mediaFiles();
    if (files.size() < 2 || !files.removeOne(file)) return false;
    Before before = _before(row, true);
    before.removedFile = file;
    before.presetOfRemovedFile = row->customPreset();
    if (!before.queue->edit({row}, [&] { setFiles(row, files); })) return false;
    _push(KVLocalizationCenter::localized("Remove File"),
          KVLocalizationCenter::localized("1 file removed from its conversion"), {std::move(before)});
    return true;
}

// Removing

void KVRowEdits::remove(const Rows &rows) {
    auto [steps, removed] = _remove(rows);
    _pushRemoval("Remove", std::move(steps), removed);
}

void KVRowEdits::clear(const Rows &rows) {
    auto [steps, removed] = _remove(rows);
    _pushRemoval("Clear", std::move(steps), removed);
}

void KVRowEdits::removeToAddAgain(const Rows &rows) {
    auto steps = _remove(rows).first;
    if (steps.empty()) return;
    for (Before &before : steps)
        before.isAddedAgain = true;
    _push(KVLocalizationCenter::localized("Remove and Add Again"), {}, std::move(steps));
}

std::pair<KVRowEdits::Steps, qsizetype> KVRowEdits::_remove(const Rows &rows) {
    Steps steps;
    qsizetype removed = 0;
    for (const auto &queue : KVConversionQueue::allQueues()) {
        Before before{queue, queue->conversions()};
        const QSet<Row> present(before.order.begin(), before.order.end());
        for (const Row &row : rows)
            if (present.contains(row)) before.removed.emplace_back(row);
        if (before.removed.empty()) continue;
        removed += qsizetype(before.removed.size());
        for (const KVRowMemo &memo : before.removed)
            queue->cancelConversion(memo.row());
        steps.push_back(std::move(before));
    }
    return {std::move(steps), removed};
}

void KVRowEdits::_pushRemoval(const char *title, Steps steps, qsizetype removed) {
    if (steps.empty()) return;
    _push(KVLocalizationCenter::localized(title),
          counted("1 conversion removed", "%@ conversions removed", removed), std::move(steps));
}

// Changes of rows

bool KVRowEdits::setPreset(const Rows &rows, const Preset &preset) {
    Steps steps;
    for (const Row &row : rows) {
        if (!reasonAgainstPreset(*row, preset).isEmpty()) continue;
        Before before = _before(row, true);
        const bool isDone = before.queue->edit({row}, [&] {
            row->setCustomPreset(preset);
            notifyOfPreset(row);
        });
        if (isDone) steps.push_back(std::move(before));
    }
    if (steps.empty()) return false;
    _push(KVLocalizationCenter::localized("Change of Preset"), {}, std::move(steps));
    return true;
}

bool KVRowEdits::_change(const Row &row, const char *title, const std::function<void()> &change) {
    Before before = _before(row, true);
    const bool isDone = before.queue->edit({row}, [&] {
        change();
        notifyOfFiles(row);
    });
    if (isDone) _push(KVLocalizationCenter::localized(title), {}, {std::move(before)});
    return isDone;
}

bool KVRowEdits::setOutputFileName(const Row &row, const std::optional<QString> &name) {
    return _change(row, "Rename", [&] { row->setOutputFileName(name); });
}

bool KVRowEdits::setDVDName(const Row &row, const QString &name) {
    const auto video = std::dynamic_pointer_cast<KVVideoConversion>(row);
    return video && _change(row, "Rename", [&] { video->setDVDName(name); });
}

bool KVRowEdits::setSubtitles(const Row &row, const std::optional<QUrl> &url, const QString &encoding) {
    const auto video = std::dynamic_pointer_cast<KVVideoFile>(row->mediaFiles().value(0));
    return video && _change(row, "Change of Subtitles", [&] { video->setSubtitles(url, encoding); });
}

// Order

bool KVRowEdits::move(const Rows &rows, qsizetype index) {
    if (rows.isEmpty()) return false;
    Before before = _before(rows.first(), false);
    before.isReordered = true;
    const QSet<Row> moved(rows.begin(), rows.end());
    Rows above, between, below;
    for (qsizetype place = 0; place < before.order.size(); ++place) {
        const Row &row = before.order.at(place);
        (moved.contains(row) ? between : place < index ? above : below) += row;
    }
    const Rows order = above + between + below;
    if (order == before.order || between.size() != moved.size()) return false;
    before.queue->setConversions(order);
    KVNotificationCenter::defaultCenter().post(ConversionQueueDidReorder, before.queue);
    _push(KVLocalizationCenter::localized("Move"), {}, {std::move(before)});
    return true;
}

// Undo

KVRowEdits::Before KVRowEdits::_before(const Row &row, bool isChanged) {
    const auto queue = queueOfRow(row);
    Before before{queue, queue->conversions()};
    if (isChanged) before.changed.emplace_back(row);
    return before;
}

void KVRowEdits::_push(const QString &title, const QString &message, Steps steps) {
    if (!KVUndoStack::shared().canUndo()) _successors.clear();
    const auto undo = [this, steps = std::move(steps)] {
        bool isAnyUndone = false;
        for (const Before &before : steps)
            isAnyUndone |= _undo(before);
        return isAnyUndone;
    };
    KVUndoStack::shared().push({.title = title, .message = message, .undo = undo});
}
