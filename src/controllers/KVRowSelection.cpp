#include "controllers/KVRowSelection.h"

#include "controllers/KVConversionRetry.h"
#include "controllers/KVPresetMenu.h"
#include "controllers/KVRowQuestions.h"
#include "kvcore/KVLocalizationCenter.h"
#include "queues/KVRowEdits.h"
#include "util/KVThreadCount.h"

#include <QHash>

#include <algorithm>

namespace {

/// How many rows may be started beside the workers of their queue: with those that run as many as a run of
/// the queue has workers, at least one.
qsizetype mostStarts(const KVConversionQueue &queue) {
    const auto preset = queue.selectedPreset();
    const int workers = KVConversionQueue::numberOfWorkers(
        KVProcessInfo::processorCount(), preset ? preset->threadCountArgument() : std::nullopt,
        KVReflectablePreferences::cpuSettings());
    const auto running = std::ranges::count_if(queue.conversions(), [](const auto &conversion) {
        return conversion->state == KVConversionState::executing;
    });
    return std::max<qsizetype>(workers - running, 1);
}

/// Starts the first of the rows at once. The others follow with the run of their queue that comes after a
/// row that was started by itself.
void startRows(const KVRowSelection::List &rows) {
    QHash<std::shared_ptr<KVConversionQueue>, qsizetype> left;
    for (const auto &row : rows) {
        const auto queue = std::dynamic_pointer_cast<KVConversionQueue>(row->queue());
        if (!queue) continue;
        if (!left.contains(queue)) left.insert(queue, mostStarts(*queue));
        if (left[queue]-- > 0) queue->startConversion(row);
    }
}

} // namespace

KVRowSelection::KVRowSelection(List conversions, std::shared_ptr<KVConversionRowServices> services)
    : _conversions(std::move(conversions))
    , _services(std::move(services)) {}

template <void (KVRowSelection::*action)() const>
KVMenuItem KVRowSelection::_item(const char *title) const {
    return {.title = KVLocalizationCenter::localized(title),
            .action = [selection = *this] { (selection.*action)(); }};
}

KVMenu KVRowSelection::menu() const {
    if (isEmpty()) return {KVMenuItem::disabled(KVLocalizationCenter::localized("No Action"))};
    if (_conversions.size() == 1) return KVConversionTableRow(_conversions.first(), _services).menu();
    KVMenu menu = _stateItems();
    const KVMenu presetItems = _presetItems();
    if (presetItems.empty()) return menu;
    menu.push_back(KVMenuItem::separator());
    std::ranges::copy(presetItems, std::back_inserter(menu));
    return menu;
}

KVMenu KVRowSelection::_stateItems() const {
    using enum KVConversionState;
    KVMenu menu;
    if (!_inState(waitingToStart).isEmpty()) menu.push_back(_item<&KVRowSelection::start>("Start"));
    if (!_inState(executing).isEmpty()) menu.push_back(_item<&KVRowSelection::pause>("Pause"));
    if (!_inState(paused).isEmpty()) menu.push_back(_item<&KVRowSelection::resume>("Resume"));
    if (!_failed().isEmpty()) menu.push_back(_item<&KVRowSelection::tryAgain>("Try Again"));
    if (!_inState(finished).isEmpty())
        menu.push_back(_item<&KVRowSelection::addAgain>("Remove and Add Again to Queue"));
    menu.push_back(KVMenuItem::separator());
    const bool isAnyRunning = !_inState(executing).isEmpty() || !_inState(paused).isEmpty();
    menu.push_back(_item<&KVRowSelection::remove>(isAnyRunning ? "Stop and Remove" : "Remove"));
    return menu;
}

/// A preset is for the waiting rows among them, as far as they are of one type. Where none waits, the
/// commands keep their places, disabled, beside rows that run.
KVMenu KVRowSelection::_presetItems() const {
    const List waiting = _inState(KVConversionState::waitingToStart);
    List rows = waiting;
    if (rows.isEmpty()) rows = _inState(KVConversionState::executing) + _inState(KVConversionState::paused);
    if (rows.isEmpty()) return {};
    const auto isElsewhere = [&](const auto &row) { return row->queue() != rows.first()->queue(); };
    KVMenuItem preset = KVPresetMenu::itemForRows(rows);
    if (waiting.isEmpty())
        preset.disableBecause(KVRowEdits::reasonAgainstChange(*rows.first()));
    else if (std::ranges::any_of(rows, isElsewhere))
        preset.disableBecause(
            KVLocalizationCenter::localized("The selected conversions are of different media types."));
    return {std::move(preset), KVMenuItem::separator(), _mergeItem()};
}

KVMenuItem KVRowSelection::_mergeItem() const {
    KVMenuItem item = _item<&KVRowSelection::merge>("Merge");
    item.disableBecause(KVRowEdits::reasonAgainstMerge(_conversions));
    return item;
}

void KVRowSelection::start() const {
    startRows(_inState(KVConversionState::waitingToStart));
}

void KVRowSelection::pause() const {
    for (const auto &conversion : _inState(KVConversionState::executing))
        conversion->pause();
}

void KVRowSelection::resume() const {
    for (const auto &conversion : _inState(KVConversionState::paused))
        conversion->resume();
}

void KVRowSelection::tryAgain() const {
    List again;
    for (const auto &conversion : _failed())
        if (const auto row = KVRetryConversion(conversion, {.isStarted = false})) again += row;
    startRows(again);
}

void KVRowSelection::addAgain() const {
    KVAddConversionsAgain(_inState(KVConversionState::finished), _services);
}

void KVRowSelection::remove() const {
    if (KVRowQuestions::mayStop(_conversions)) KVRowEdits::shared().remove(_conversions);
}

void KVRowSelection::move(int direction) const {
    const auto queue =
        isEmpty() ? nullptr : std::dynamic_pointer_cast<KVConversionQueue>(_conversions.first()->queue());
    if (!queue) return;
    const List rows = queue->conversions();
    List moved = _conversions;
    moved.removeIf([&](const auto &conversion) { return !rows.contains(conversion); });
    if (moved.isEmpty()) return;
    const qsizetype index = direction < 0 ? rows.indexOf(moved.first()) - 1 : rows.indexOf(moved.last()) + 2;
    if (index >= 0 && index <= rows.size()) KVRowEdits::shared().move(moved, index);
}

void KVRowSelection::merge() const {
    if (KVRowQuestions::mayMerge(KVRowQuestions::numberOfFiles(_conversions)) &&
        !KVRowEdits::shared().merge(_conversions))
        KVRowQuestions::explain(KVRowEdits::reasonAgainstMerge(_conversions));
}

KVRowSelection::List KVRowSelection::_failed() const {
    List conversions = _conversions;
    conversions.removeIf([](const auto &conversion) {
        return KVRowOutcome::of(*conversion).kind != KVRowOutcome::Kind::failed;
    });
    return conversions;
}

KVRowSelection::List KVRowSelection::_inState(KVConversionState state) const {
    List conversions = _conversions;
    conversions.removeIf([state](const auto &conversion) { return conversion->state != state; });
    return conversions;
}
