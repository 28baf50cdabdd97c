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
    : _mediaFiles(mediaFiles) {}

KVConversion::~KVConversion() = default;

void KVConversion::start() {
    state = KVConversionState::executing;
    _isExecuting = true;
    main();
    _isExecuting = false;
    {
        const std::scoped_lock lock(_mutex);
        _hasFinished = true;
    }
    _finished.notify_all();
}

void KVConversion::main() {
    const auto self = shared_from_this();
    KVMainThread::async([self] { KVNotificationCenter::defaultCenter().post(ConversionDidStart, self); });
    _tellDelegates(
        [](auto &delegate, const auto &conversion) { delegate.conversionWillStartExecuting(conversion); });
    if (!queue()) KVFatalError("A conversion cannot run without its queue!");
    _addKnownWarnings();

    // A conversion that was cancelled between two tasks, or before the first, ends well.
    _hasFailed = !_performAllTasks();
    if (!_hasFailed) {
        conversionWasSuccessful = true;
        setStatusString(KVLocalizationCenter::localized("Done."));
    }

    _tellDelegates(
        [](auto &delegate, const auto &conversion) { delegate.conversionDidFinishExecuting(conversion); });
    KVMainThread::async([self] { KVNotificationCenter::defaultCenter().post(ConversionDidFinish, self); });
    state = KVConversionState::finished;
}

/// What is known to be lost before anything has run.
void KVConversion::_addKnownWarnings() {
    const auto files = mediaFiles();
    for (const auto &file : files)
        for (const QString &warning : file->warnings)
            addWarning(warning);
    for (const QString &warning : presetInForce()->warningsForFiles(files))
        addWarning(warning);
}

bool KVConversion::_performAllTasks() {
    const int count = numberOfTasks();
    for (int number = 0; number < count && !isCancelled(); ++number) {
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
    _isCancelled = true;
}

void KVConversion::resume() {
    KVFatalError("resume has to be overridden!");
}

void KVConversion::waitUntilFinished() {
    std::unique_lock lock(_mutex);
    _finished.wait(lock, [this] { return _hasFinished; });
}

std::shared_ptr<KVPreset> KVConversion::presetInForce() const {
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
    return tasksDone / static_cast<double>(numberOfTasks());
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
        return conversionWasSuccessful ? KVLocalizationCenter::localized("Done!")
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
    const KVConversionError error{mediaFiles(), presetInForce(), arguments, output, status, reason};
    {
        const std::scoped_lock lock(_mutex);
        if (!_failure) _failure = error;
    }
    KVErrorCenter::shared().addError(error);
}

// Guarded fields

std::optional<KVConversionError> KVConversion::failure() const {
    const std::scoped_lock lock(_mutex);
    return _failure;
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

void KVConversion::setCustomPreset(const std::shared_ptr<KVPreset> &preset) {
    const std::scoped_lock lock(_mutex);
    _customPreset = preset;
}

KVMediaFileList KVConversion::mediaFiles() const {
    const std::scoped_lock lock(_mutex);
    return _mediaFiles;
}

void KVConversion::setMediaFiles(const KVMediaFileList &files) {
    const std::scoped_lock lock(_mutex);
    _mediaFiles = files;
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

void KVConversion::setOutputFileName(const std::optional<QString> &name) {
    const std::scoped_lock lock(_mutex);
    _outputFileName = name;
    if (name && _outputURL)
        _outputURL = KVFileManager::appendingPathComponent(
            KVFileManager::deletingLastPathComponent(*_outputURL), *name);
}

std::shared_ptr<KVConversionHost> KVConversion::queue() const {
    const std::scoped_lock lock(_mutex);
    return _queue;
}

void KVConversion::setQueue(const std::shared_ptr<KVConversionHost> &queue) {
    const std::scoped_lock lock(_mutex);
    _queue = queue;
}
