#include "queues/KVConversionQueue.h"

#include "core/KVErrorCenter.h"
#include "kvcore/KVBookmark.h"
#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVMainThread.h"
#include "kvcore/KVText.h"
#include "platform/KVUserQuestions.h"
#include "presets/KVPresetRegistry.h"
#include "util/KVThreadCount.h"

#include <QScopeGuard>

#include <algorithm>
#include <cmath>
#include <thread>

namespace {

bool isWaiting(const std::shared_ptr<KVConversion> &conversion) {
    return conversion->state == KVConversionState::waitingToStart;
}

} // namespace

KVConversionQueue::KVConversionQueue(KVMediaFileType type)
    : _mediaFileType(type)
    , _outputDirectoryURL(KVAppScopeBookmarksManager::url(KVPreferenceKeys::FixedDestinationBookmark)) {
    KVErrorCenter::shared(); // listens before any queue can end
}

KVConversionQueue::~KVConversionQueue() = default;

// Rows

std::shared_ptr<KVConversion>
KVConversionQueue::createConversion(const std::shared_ptr<KVMediaFile> &file,
                                    const std::shared_ptr<KVPreset> &customPreset, bool addToQueue) {
    auto conversion = KVConversion::conversionWithMediaFile(file);
    conversion->setCustomPreset(customPreset);
    for (const auto &delegate : conversion->delegates().allValues())
        delegate->conversionDidChangePreset(conversion);
    const auto self = shared_from_this();
    if (!conversion->delegates().contains(self)) conversion->delegates().append(self);
    conversion->setQueue(self);
    if (addToQueue) insertConversion(conversion, conversions().size());
    return conversion;
}

void KVConversionQueue::insertConversion(const std::shared_ptr<KVConversion> &conversion, qsizetype index) {
    {
        const std::scoped_lock lock(_fieldsMutex);
        _operations.insert(index, conversion);
        for (const auto &file : conversion->mediaFiles())
            _mediaURLs += file->url();
    }
    KVNotificationCenter::defaultCenter().post(ConversionQueueDidAddConversion, conversion);
}

void KVConversionQueue::cancelConversion(const std::shared_ptr<KVConversion> &conversion) {
    KVNotificationCenter::defaultCenter().post(ConversionQueueWillRemoveConversion, conversion);
    conversion->cancel();
    const std::scoped_lock lock(_fieldsMutex);
    _operations.removeOne(conversion);
    _areMediaURLsKnown = false;
}

KVConversionQueue::List KVConversionQueue::conversions() const {
    const std::scoped_lock lock(_fieldsMutex);
    return _operations;
}

void KVConversionQueue::setConversions(const List &conversions) {
    const std::scoped_lock lock(_fieldsMutex);
    _operations = conversions;
    _areMediaURLsKnown = false;
}

bool KVConversionQueue::edit(const List &rows, const std::function<void()> &change) {
    const auto present = conversions();
    {
        const std::scoped_lock lock(_lock);
        const bool canEdit = std::ranges::all_of(
            rows, [&](const auto &row) { return present.contains(row) && row->canBeChanged(); });
        if (!canEdit) return false;
        ++_numberOfEdits;
    }
    const auto endEdit = qScopeGuard([this] {
        const std::scoped_lock lock(_lock);
        --_numberOfEdits;
        _pickIsPossible.notify_all();
    });
    change();
    return true;
}

void KVConversionQueue::conversionDidUpdateFiles(const std::shared_ptr<KVConversion> &) {
    const std::scoped_lock lock(_fieldsMutex);
    _areMediaURLsKnown = false;
}

bool KVConversionQueue::_containsMedia(const QUrl &url) const {
    const std::scoped_lock lock(_fieldsMutex);
    if (!_areMediaURLsKnown) {
        _mediaURLs.clear();
        for (const auto &conversion : _operations)
            for (const auto &file : conversion->mediaFiles())
                _mediaURLs += file->url();
        _areMediaURLsKnown = true;
    }
    return _mediaURLs.contains(url);
}

int KVConversionQueue::numberOfFilesWaitingToBeConverted() const {
    const auto rows = conversions();
    return static_cast<int>(std::ranges::count_if(rows, isWaiting));
}

// Starting and pausing

void KVConversionQueue::start() {
    {
        const std::scoped_lock lock(_lock);
        if (_isStarting || _isQuitting) return; // also when this comes while the user is being asked
        if (isWorking()) return _resumePausedConversions();
        if (numberOfFilesWaitingToBeConverted() == 0) return;
        _isStarting = true;
    }
    const auto preset = selectedPreset();
    const auto threadCount = preset ? preset->threadCountArgument() : std::nullopt;
    const int processors = KVProcessInfo::processorCount();
    const int count = numberOfWorkers(processors, threadCount, KVReflectablePreferences::cpuSettings());
    KVLog(QString("CPU count: %1, selected preset will run on %2 threads on current configuration. "
                  "Number of concurrent conversions: %3")
              .arg(processors)
              .arg(threadCount ? KVText::integerValue(*threadCount) : 1)
              .arg(count));
    _maximumNumberOfConcurrentConversions = count;

    if (_settleDestination())
        _workers.run([self = shared_from_this()] { self->_convert(); });
    else {
        const std::scoped_lock lock(_lock);
        _isStarting = false;
    }
}

int KVConversionQueue::numberOfWorkers(int processorCount, const std::optional<QString> &threadCountArgument,
                                       KVCPUSettings setting) {
    int count = processorCount;
    if (threadCountArgument) {
        const double threads = KVText::doubleValue(*threadCountArgument);
        if (threads == 0) KVFatalError("A preset cannot run on 0 threads!");
        count = static_cast<int>(std::ceil(processorCount / threads));
    }
    if (setting == KVCPUSettings::medium) count /= 2;
    if (setting == KVCPUSettings::low) count /= 4;
    return std::max(count, 1);
}

/// With `_lock` held.
void KVConversionQueue::_resumePausedConversions() {
    for (const auto &conversion : conversions())
        if (conversion->state == KVConversionState::paused) conversion->resume();
}

void KVConversionQueue::pause() {
    const std::scoped_lock lock(_lock);
    for (const auto &conversion : conversions())
        if (conversion->state == KVConversionState::executing) conversion->pause();
}

/// Knows where to when it answers true. The lock is not held while the user is asked: what happens on the
/// main thread meanwhile goes on, workers wait.
bool KVConversionQueue::_settleDestination() {
    {
        const std::scoped_lock lock(_lock);
        _isSettlingDestination = true;
    }
    const auto fixed = KVAppScopeBookmarksManager::url(KVPreferenceKeys::FixedDestinationBookmark);
    bool isSettled = true;
    if (fixed || KVPreferences::shared().boolean(KVPreferenceKeys::SaveToSourceFolder, true))
        setOutputDirectoryURL(fixed);
    else
        isSettled = _chooseDestination();
    const std::scoped_lock lock(_lock);
    _isSettlingDestination = false;
    _pickIsPossible.notify_all();
    return isSettled && !_isQuitting;
}

bool KVConversionQueue::_chooseDestination() {
    KVOpenPanel panel;
    panel.message = KVLocalizationCenter::localized("Please, select a destination for converting %@s:",
                                                    {KVMediaFileTypes::localizedName(_mediaFileType)});
    const auto chosen = KVUserQuestion::runModalOnMainThread(panel);
    if (chosen.isEmpty()) {
        KVLog("User cancelled destination selection, canceling start.");
        return false;
    }
    setOutputDirectoryURL(chosen.first());
    return true;
}

// The workers

/// One run of the queue, on a worker. Runs follow each other: the next one waits here until everyone knows
/// that this one has ended.
void KVConversionQueue::_convert() {
    const std::scoped_lock run(_runMutex);
    const auto self = shared_from_this();
    KVMainThread::syncOrNow(
        [&] { KVNotificationCenter::defaultCenter().post(ConversionQueueDidStart, self); });

    const int count = _maximumNumberOfConcurrentConversions;
    _threadLock.lock();
    _threadLock.unlockWithCondition(count);
    {
        const std::scoped_lock lock(_lock);
        _isStarting = false;
    }
    for (int further = 1; further < count; ++further)
        _workers.run([self] { self->_conversionThread(); });
    _conversionThread();
    _threadLock.lockWhenCondition(0);
    _threadLock.unlock();

    KVMainThread::syncOrNow([&] {
        _tellDelegates([&](auto &delegate) { delegate.conversionQueueDidFinishAllConversions(self); });
        _tellDelegatesIfIdle();
    });
    KVMainThread::after(
        0.1, [self] { KVNotificationCenter::defaultCenter().post(ConversionQueueDidFinish, self); });
}

void KVConversionQueue::_conversionThread() {
    KVLog(QString("Launched in thread %1, queue %2")
              .arg(std::hash<std::thread::id>()(std::this_thread::get_id()))
              .arg(KVMediaFileTypes::caseName(_mediaFileType)));
    while (const auto conversion = _reserveNextConversion())
        _run(conversion);
    _threadLock.lock();
    _threadLock.unlockWithCondition(_threadLock.condition() - 1);
}

std::unique_lock<std::mutex> KVConversionQueue::_lockForPick() {
    std::unique_lock lock(_lock);
    _pickIsPossible.wait(lock,
                         [this] { return (!_isSettlingDestination && _numberOfEdits == 0) || _isQuitting; });
    return lock;
}

std::shared_ptr<KVConversion> KVConversionQueue::_reserveNextConversion() {
    const auto lock = _lockForPick();
    if (_isQuitting) return nullptr;
    const auto rows = conversions();
    const auto pick = std::ranges::find_if(
        rows, [](const auto &conversion) { return isWaiting(conversion) && !conversion->isReserved; });
    if (pick == rows.end()) return nullptr;
    (*pick)->isReserved = true;
    return *pick;
}

bool KVConversionQueue::_reserve(const std::shared_ptr<KVConversion> &conversion) {
    const auto lock = _lockForPick();
    if (_isQuitting || conversion->isReserved || !isWaiting(conversion)) return false;
    if (conversion->isCancelled()) return false; // removed meanwhile
    conversion->isReserved = true;
    return true;
}

void KVConversionQueue::_run(const std::shared_ptr<KVConversion> &conversion) {
    {
        const std::scoped_lock lock(_fieldsMutex);
        _running += conversion;
    }
    conversion->start();
    conversion->waitUntilFinished();
    const std::scoped_lock lock(_fieldsMutex);
    _running.removeOne(conversion);
}

void KVConversionQueue::startConversion(const std::shared_ptr<KVConversion> &conversion) {
    selectedPreset(); // read for the first time here rather than by the worker
    ++_numberOfSingleRuns;
    _workers.run([self = shared_from_this(), conversion] {
        const bool hasRun = self->_reserve(conversion);
        if (hasRun) self->_run(conversion);
        KVMainThread::async([self, hasRun] {
            --self->_numberOfSingleRuns;
            if (!hasRun) return;
            self->start();
            self->_tellDelegatesIfIdle();
        });
    });
}

void KVConversionQueue::_tellDelegatesIfIdle() {
    if (isAnythingRunning()) return;
    _tellDelegates(
        [self = shared_from_this()](auto &delegate) { delegate.conversionQueueDidBecomeIdle(self); });
}

bool KVConversionQueue::isAnythingRunning() const {
    if (isWorking() || _numberOfSingleRuns > 0) return true;
    {
        const std::scoped_lock lock(_lock);
        if (_isStarting && !_isSettlingDestination) return true;
    }
    return !_runningConversions().isEmpty();
}

// Quitting

bool KVConversionQueue::_endWorkers(const std::vector<std::shared_ptr<KVConversionQueue>> &queues,
                                    double seconds) {
    const auto haveEnded = [&] {
        return std::ranges::all_of(queues, [](const auto &queue) { return queue->_workers.isEmpty(); });
    };
    for (const auto &queue : queues)
        for (const auto &conversion : queue->conversions() + queue->_runningConversions())
            conversion->cancel();
    if (haveEnded() || KVMainThread::runUntil(haveEnded, seconds / 2)) return true;
    for (const auto &queue : queues)
        for (const auto &conversion : queue->_runningConversions())
            conversion->killChildren();
    return KVMainThread::runUntil(haveEnded, seconds / 2);
}

void KVConversionQueue::_setIsQuitting(bool isQuitting) {
    const std::scoped_lock lock(_lock);
    _isQuitting = isQuitting;
    _pickIsPossible.notify_all();
}

KVConversionQueue::List KVConversionQueue::_runningConversions() const {
    const std::scoped_lock lock(_fieldsMutex);
    return _running;
}

// Delegates

void KVConversionQueue::appendDelegate(const std::shared_ptr<KVConversionQueueDelegate> &delegate) {
    const std::scoped_lock lock(_fieldsMutex);
    _delegates.push_back(delegate);
}

void KVConversionQueue::removeDelegate(const std::shared_ptr<KVConversionQueueDelegate> &delegate) {
    const std::scoped_lock lock(_fieldsMutex);
    std::erase(_delegates, delegate);
}

template <class Call>
void KVConversionQueue::_tellDelegates(Call call) {
    std::unique_lock lock(_fieldsMutex);
    const auto delegates = _delegates;
    lock.unlock();
    for (const auto &delegate : delegates)
        call(*delegate);
}

void KVConversionQueue::conversionWillStartExecuting(const std::shared_ptr<KVConversion> &conversion) {
    _tellDelegates([&, self = shared_from_this()](auto &delegate) {
        delegate.conversionQueueWillStartConversion(self, conversion);
    });
}

void KVConversionQueue::conversionDidFinishExecuting(const std::shared_ptr<KVConversion> &conversion) {
    const bool wasSuccessful = conversion->hasSucceeded();
    _tellDelegates([&, self = shared_from_this()](auto &delegate) {
        if (wasSuccessful)
            delegate.conversionQueueDidSuccessfullyFinishConversion(self, conversion);
        else
            delegate.conversionQueueDidFailConversion(self, conversion);
    });
}

void KVConversionQueue::conversionDidReachProgress(const std::shared_ptr<KVConversion> &conversion, double) {
    _tellDelegates([&, self = shared_from_this()](auto &delegate) {
        delegate.conversionQueueConversionDidUpdateStatus(self, conversion);
    });
}

// Settings

int KVConversionQueue::maximumNumberOfConcurrentConversions() const {
    return _maximumNumberOfConcurrentConversions;
}

std::optional<QUrl> KVConversionQueue::outputDirectoryURL() const {
    const std::scoped_lock lock(_fieldsMutex);
    return _outputDirectoryURL;
}

void KVConversionQueue::setOutputDirectoryURL(const std::optional<QUrl> &url) {
    const std::scoped_lock lock(_fieldsMutex);
    _outputDirectoryURL = url;
}

std::shared_ptr<KVPreset> KVConversionQueue::selectedPreset() const {
    {
        const std::scoped_lock lock(_fieldsMutex);
        if (_selectedPreset) return _selectedPreset;
    }
    const auto preset = KVPresetRegistry::shared().defaultPreset(_mediaFileType);
    const std::scoped_lock lock(_fieldsMutex);
    if (!_selectedPreset) _selectedPreset = preset;
    return _selectedPreset;
}

void KVConversionQueue::setSelectedPreset(const std::shared_ptr<KVPreset> &preset) {
    const std::scoped_lock lock(_fieldsMutex);
    _selectedPreset = preset;
}
