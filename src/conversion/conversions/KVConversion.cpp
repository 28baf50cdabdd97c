#include "conversion/conversions/KVConversion.h"

#include "conversion/conversions/KVAudioConversion.h"
#include "conversion/conversions/KVDVDConversion.h"
#include "conversion/conversions/KVPictureConversion.h"
#include "conversion/conversions/KVVideoConversion.h"
#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVMainThread.h"
#include "kvcore/KVTime.h"
#include "platform/KVFileManager.h"
#include "util/KVOutputClaim.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVSourceNames.h"

namespace {

std::shared_ptr<KVSourceNames> sourceNamesOf(const KVMediaFileList &files) {
    QList<QUrl> urls;
    for (const auto &file : files)
        urls += file->url();
    return std::make_shared<KVSourceNames>(urls);
}

} // namespace

std::shared_ptr<KVConversion>
KVConversion::conversionWithMediaFile(const std::shared_ptr<KVMediaFile> &file) {
    const KVMediaFileList files{file};
    switch (file->mediaFileType()) {
    case KVMediaFileType::audio:
        return std::make_shared<KVAudioConversion>(files);
    case KVMediaFileType::video:
        return std::make_shared<KVVideoConversion>(files);
    case KVMediaFileType::picture:
        return std::make_shared<KVPictureConversion>(files);
    case KVMediaFileType::dvd:
        return std::make_shared<KVDVDConversion>(files);
    case KVMediaFileType::none:
        break;
    }
    KVFatalError("There is no conversion for this type of file!");
}

KVConversion::KVConversion(const KVMediaFileList &mediaFiles)
    : _mediaFiles(mediaFiles)
    , _sourceNames(sourceNamesOf(mediaFiles)) {}

KVConversion::~KVConversion() = default;

void KVConversion::start() {
    // On the main thread, where files, presets and queues are changed.
    KVMainThread::syncOrNow([this] {
        _takeSnapshot();
        state = KVConversionState::executing;
    });
    _isExecuting = true;
    main();
    _isExecuting = false;
    {
        const std::scoped_lock lock(_mutex);
        _hasFinished = true;
        _sourceNames.reset();
    }
    _finished.notify_all();
}

void KVConversion::_takeSnapshot() {
    const auto owner = queue();
    if (!owner) KVFatalError("A conversion cannot run without its queue!");
    const auto preset = presetInForce();
    auto snapshot = std::make_shared<KVConversionSnapshot>();
    for (const auto &file : mediaFiles())
        snapshot->files += file->snapshot();
    snapshot->preset = preset->snapshot();
    const auto ownFolder = destinationFolder();
    snapshot->outputDirectoryURL = ownFolder ? ownFolder : owner->outputDirectoryURL();
    snapshot->savesToSourceFolder =
        !ownFolder && KVPreferences::shared().boolean(KVPreferenceKeys::SaveToSourceFolder, true);
    snapshot->numberOfTasks = numberOfTasks();
    auto shownPreset = preset->snapshot();

    const std::scoped_lock lock(_mutex);
    _snapshot = std::move(snapshot);
    _shownPreset = std::move(shownPreset);
    if (_customPreset) _customPreset = _shownPreset;
}

void KVConversion::main() {
    const auto self = shared_from_this();
    KVMainThread::async([self] { KVNotificationCenter::defaultCenter().post(ConversionDidStart, self); });
    _tellDelegates(
        [](auto &delegate, const auto &conversion) { delegate.conversionWillStartExecuting(conversion); });
    _addKnownWarnings();

    // A conversion that was cancelled between two tasks, or before the first, ends on the path of success
    // without having succeeded.
    const bool isDone = _performAllTasks();
    _hasFailed = !isDone;
    _hasSucceeded = isDone && !_wasCutShort;
    if (isDone) conversionWasSuccessful = true;
    if (_hasSucceeded) setStatusString(KVLocalizationCenter::localized("Done."));

    _tellDelegates(
        [](auto &delegate, const auto &conversion) { delegate.conversionDidFinishExecuting(conversion); });
    KVMainThread::async([self] { KVNotificationCenter::defaultCenter().post(ConversionDidFinish, self); });
    state = KVConversionState::finished;
}

/// What is known to be lost before anything has run.
void KVConversion::_addKnownWarnings() {
    for (const auto &file : _inWork().files)
        for (const QString &warning : file->warnings)
            addWarning(warning);
    for (const QString &warning : _inWork().preset->warningsForFiles(_inWork().files))
        addWarning(warning);
}

bool KVConversion::_performAllTasks() {
    const int count = _inWork().numberOfTasks;
    for (int number = 0; number < count; ++number) {
        if (isCancelled()) {
            _wasCutShort = true;
            break;
        }
        currentSubtask = number;
        progressOfCurrentTask = 0;
        if (!performTaskNumber(number)) return false;
    }
    return true;
}

bool KVConversion::performTaskNumber(int) {
    KVFatalError("performTaskNumber has to be overridden!");
}

void KVConversion::cancel() {
    if (isFinished()) return; // a row that is removed after its end keeps its outcome
    _isCancelled = true;
    const std::scoped_lock lock(_mutex);
    if (state == KVConversionState::waitingToStart) _sourceNames.reset(); // no task of it will ever run
}

void KVConversion::resume() {
    KVFatalError("resume has to be overridden!");
}

void KVConversion::waitUntilFinished() {
    std::unique_lock lock(_mutex);
    _finished.wait(lock, [this] { return _hasFinished; });
}

std::shared_ptr<KVPreset> KVConversion::presetInForce() const {
    {
        const std::scoped_lock lock(_mutex);
        if (_shownPreset) return _shownPreset;
    }
    if (auto custom = customPreset()) return custom;
    const auto owner = queue();
    auto preset = owner ? owner->selectedPreset() : nullptr;
    if (!preset) KVFatalError("A conversion cannot run without a preset!");
    return preset;
}

// Progress

double KVConversion::overallValue() const {
    if (isFinished()) return 1;
    const double tasksDone = progressOfCurrentTask + currentSubtask;
    if (tasksDone == 0) return 0; // asked of every waiting row, for each report of a running one
    const auto running = snapshot();
    return tasksDone / static_cast<double>(running ? running->numberOfTasks : numberOfTasks());
}

void KVConversion::notifyDelegatesAboutProgress() {
    _newestProgress = overallValue();
    if (_isProgressDeliveryPending.exchange(true)) return;
    KVMainThread::async([self = shared_from_this()] {
        // In this order: a value that comes now either is read below or starts a delivery of its own.
        self->_isProgressDeliveryPending = false;
        const double progress = self->_newestProgress;
        for (const auto &delegate : self->_delegates.allValues())
            delegate->conversionDidReachProgress(self, progress);
    });
}

QString KVConversion::estimatedTimeString() const {
    switch (state.load()) {
    case KVConversionState::finished:
        if (hasSucceeded()) return KVLocalizationCenter::localized("Done!");
        return isCancelled() ? KVLocalizationCenter::localized("User cancelled.")
                             : KVLocalizationCenter::localized("Error converting.");
    case KVConversionState::waitingToStart:
        return KVLocalizationCenter::localized("Waiting to start...");
    case KVConversionState::executing:
    case KVConversionState::paused:
        break;
    }
    return KVTime::localizedTimeString(estimatedTime);
}

void KVConversion::_tellDelegates(
    std::function<void(KVConversionDelegate &, const std::shared_ptr<KVConversion> &)> call) {
    KVMainThread::async([self = shared_from_this(), call = std::move(call)] {
        for (const auto &delegate : self->_delegates.allValues())
            call(*delegate, self);
    });
}

void KVConversion::_recordError(const QStringList &arguments, const QString &output, int status,
                                const QString &reason) {
    const auto error = _error(arguments, output, status, reason);
    _keepFailure(error);
    KVErrorCenter::shared().addError(error);
}

void KVConversion::_keepFailure(const KVConversionError &error) {
    const auto cause = KVFailureCause::of(error);
    const std::scoped_lock lock(_mutex);
    if (_failure) return;
    _failure = error;
    _failureCause = cause;
}

KVConversionError KVConversion::_error(const QStringList &arguments, const QString &output, int status,
                                       const QString &reason) const {
    return {_inWork().files, _inWork().preset, arguments, output, status, reason};
}

void KVConversion::removePartialOutput() {
    if (const auto claim = _outputClaim()) claim->discard();
}

std::shared_ptr<KVOutputClaim> KVConversion::_outputClaim() const {
    const std::scoped_lock lock(_mutex);
    return _claim;
}

void KVConversion::_setOutputClaim(const std::shared_ptr<KVOutputClaim> &claim) {
    auto previous = claim; // goes after the lock: it may have to remove a file
    const std::scoped_lock lock(_mutex);
    _claim.swap(previous);
}

// Guarded fields

std::optional<KVConversionError> KVConversion::failure() const {
    const std::scoped_lock lock(_mutex);
    return _failure;
}

std::optional<KVFailureCause> KVConversion::failureCause() const {
    const std::scoped_lock lock(_mutex);
    return _failureCause;
}

QStringList KVConversion::warnings() const {
    const std::scoped_lock lock(_mutex);
    return _warnings;
}

void KVConversion::addWarning(const QString &warning) {
    const std::scoped_lock lock(_mutex);
    if (!_warnings.contains(warning)) _warnings.append(warning);
}

std::shared_ptr<KVPreset> KVConversion::customPreset() const {
    const std::scoped_lock lock(_mutex);
    return _customPreset;
}

bool KVConversion::setCustomPreset(const std::shared_ptr<KVPreset> &preset) {
    const auto original = preset ? preset->original() : nullptr;
    const std::scoped_lock lock(_mutex);
    if (!canBeChanged()) return false;
    _customPreset = original ? original : preset;
    return true;
}

KVMediaFileList KVConversion::mediaFiles() const {
    const std::scoped_lock lock(_mutex);
    return _mediaFiles;
}

bool KVConversion::setMediaFiles(const KVMediaFileList &files) {
    auto names = sourceNamesOf(files); // looks at the files
    const std::scoped_lock lock(_mutex);
    if (!canBeChanged()) return false;
    _mediaFiles = files;
    _sourceNames = std::move(names);
    return true;
}

bool KVConversion::canBeChanged() const {
    return state == KVConversionState::waitingToStart && !isReserved;
}

std::shared_ptr<const KVConversionSnapshot> KVConversion::snapshot() const {
    const std::scoped_lock lock(_mutex);
    return _snapshot;
}

const KVConversionSnapshot &KVConversion::_inWork() const {
    const std::scoped_lock lock(_mutex);
    if (!_snapshot) KVFatalError("A conversion works with the snapshot of its start!");
    return *_snapshot; // set once, and lives as long as the conversion
}

std::optional<QUrl> KVConversion::outputURL() const {
    const std::scoped_lock lock(_mutex);
    return _outputURL;
}

void KVConversion::setOutputURL(const std::optional<QUrl> &url) {
    const std::scoped_lock lock(_mutex);
    _outputURL = url;
}

QString KVConversion::statusString() const {
    const std::scoped_lock lock(_mutex);
    return _statusString;
}

void KVConversion::setStatusString(const QString &text) {
    const std::scoped_lock lock(_mutex);
    _statusString = text;
}

std::optional<QString> KVConversion::outputFileName() const {
    const std::scoped_lock lock(_mutex);
    return _outputFileName;
}

bool KVConversion::setOutputFileName(const std::optional<QString> &name) {
    const std::scoped_lock lock(_mutex);
    if (!canBeChanged() && !isFinished()) return false;
    _outputFileName = name;
    if (name && _outputURL)
        _outputURL = KVFileManager::appendingPathComponent(
            KVFileManager::deletingLastPathComponent(*_outputURL), *name);
    return true;
}

std::optional<QUrl> KVConversion::destinationFolder() const {
    const std::scoped_lock lock(_mutex);
    return _destinationFolder;
}

void KVConversion::setDestinationFolder(const std::optional<QUrl> &folder) {
    const std::scoped_lock lock(_mutex);
    _destinationFolder = folder;
}

std::shared_ptr<KVConversionHost> KVConversion::queue() const {
    const std::scoped_lock lock(_mutex);
    return _queue;
}

void KVConversion::setQueue(const std::shared_ptr<KVConversionHost> &queue) {
    const std::scoped_lock lock(_mutex);
    _queue = queue;
}
