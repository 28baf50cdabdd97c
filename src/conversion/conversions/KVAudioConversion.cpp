#include "conversion/conversions/KVAudioConversion.h"

#include "conversion/conversions/KVResultCheck.h"
#include "core/KVHistoryCenter.h"
#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVMainThread.h"
#include "kvcore/KVText.h"
#include "platform/KVFileManager.h"
#include "tasks/KVProbeHelper.h"
#include "util/KVLiveCount.h"
#include "util/KVOutputClaim.h"
#include "util/KVPreferenceKeys.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <csignal>
#include <numeric>

namespace {

/// Statuses of a child that never came to be, as a shell tells them.
constexpr int launchFailedStatus = 127;
constexpr int interruptedStatus = 128 + SIGINT;
/// The tool's own for an output that could not be written.
constexpr int writeFailedStatus = 1;
constexpr int emptyResultStatus = 1;
constexpr int lostResultStatus = 1;

class RunningChild : public KVLiveCount<RunningChild> {};

double secondsSince1970() {
    return static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000;
}

QString describe(const KVMediaFileList &files) {
    QStringList descriptions;
    for (const auto &file : files)
        descriptions += file->description();
    return descriptions.join(", ");
}

KVAudioFileList audioFiles(const KVMediaFileList &files) {
    KVAudioFileList result;
    for (const auto &file : files) {
        auto audioFile = std::dynamic_pointer_cast<KVAudioFile>(file);
        if (!audioFile) KVFatalError("There are not audio files!");
        result += audioFile;
    }
    return result;
}

/// Some versions of the tool end with status 0 although the last of the output, or all of a short one, found
/// no place on the disk; they only say so, towards the end of what they print.
bool hasLostOutput(const QByteArray &taskOutput, const QString &path) {
    constexpr qsizetype lengthOfEnd = 65536;
    const QByteArrayView end = QByteArrayView(taskOutput).last(std::min(taskOutput.size(), lengthOfEnd));
    const QByteArray subject = path.toUtf8() + ": ";
    return end.contains("Error writing trailer of " + subject) ||
           end.contains("Error closing file " + subject);
}

/// Why nothing can be written there, in the user's language; empty if something can.
QString objectionToDestination(const QUrl &destination) {
    const QUrl folder = KVFileManager::isDirectory(destination)
                            ? destination
                            : KVFileManager::deletingLastPathComponent(destination);
    if (KVFileManager::isWritable(folder)) return {};
    return KVLocalizationCenter::localized("The destination folder %@ is missing or cannot be written to.",
                                           {folder.toLocalFile()});
}

/// Asks the child to stop. Its output is thrown away in any case, so one that does not listen is asked again
/// and then ended.
void stopChild(const std::shared_ptr<KVFFmpegTask> &task) {
    task->process().resume(); // a suspended child would not take the next signal
    task->process().interrupt();
    const std::weak_ptr<KVFFmpegTask> weakTask = task;
    KVMainThread::after(0.5, [weakTask] {
        if (const auto running = weakTask.lock()) running->process().interrupt();
    });
    KVMainThread::after(1, [weakTask] {
        if (const auto running = weakTask.lock()) running->process().kill();
    });
}

} // namespace

// Where to

bool KVAudioConversion::performTaskNumber(int) {
    const auto &work = _inWork();
    const auto folder = work.fixedOrSourceFolder();
    if (!folder) {
        _recordError({}, "No output URL is set.", 1);
        return false;
    }
    return convertFiles(work.files, _destination(*folder, *work.preset), work.preset, true);
}

QUrl KVAudioConversion::_destination(const QUrl &folder, const KVPreset &preset) const {
    const QUrl source = _inWork().files.first()->url();
    const auto output = outputURL();
    const QString baseName = outputFileName().value_or(
        KVFileManager::deletingPathExtension(KVFileManager::lastPathComponent(output.value_or(source))));
    return KVFileManager::appendingPathExtension(
        KVFileManager::appendingPathComponent(folder, baseName),
        preset.pathExtension().value_or(KVFileManager::pathExtension(source)));
}

// The run

bool KVAudioConversion::convertFiles(const KVMediaFileList &files, const QUrl &destination,
                                     const std::shared_ptr<KVPreset> &preset, bool addToHistory) {
    const auto sources = audioFiles(files);
    const QString refusal = preset->refusalOfFiles(files);
    const auto made = refusal.isEmpty() ? preset->taskForConversionOfFiles(files, destination) : std::nullopt;
    if (!made) {
        KVLog("(nil) task, aborting (preset: " + preset->description() + ", files: " + describe(files) +
              ").");
        _recordError({}, "Couldn't create task, aborting.", -1,
                     refusal.isEmpty() ? objectionToDestination(destination) : refusal);
        conversionWasSuccessful = false;
        progressOfCurrentTask = 1;
        setStatusString(KVLocalizationCenter::localized("Couldn't start conversion."));
        notifyDelegatesAboutProgress();
        return false;
    }
    for (const QString &warning : made->warnings)
        addWarning(warning);
    KVLog("Preset: " + preset->description() + ", files: " + describe(files) +
          ", output: " + made->outputURL.toLocalFile());
    KVLog("Task arguments: " + made->task->arguments().join(' ') + ", " + made->task->launchPath());
    return _convert(sources, *made, preset->presetType(), addToHistory);
}

bool KVAudioConversion::_convert(const KVAudioFileList &files, const KVPresetTask &made, KVMediaFileType type,
                                 bool addToHistory) {
    setOutputURL(made.outputURL);
    _setTask(made.task);
    _setOutputClaim(made.claim);
    const double started = secondsSince1970();
    _taskOutput.clear();
    _report = {};
    _failureReason.clear();

    _terminationStatus = _run(files, *made.task);
    const QString output = made.outputURL.toLocalFile();
    const bool isFolderGone = !QFileInfo::exists(QFileInfo(output).path());
    if (isFolderGone) _taskOutput += "The destination folder is gone.\n";
    if (_terminationStatus == 0 && (isFolderGone || hasLostOutput(_taskOutput, output)))
        _terminationStatus = writeFailedStatus;
    if (_terminationStatus == 0) _checkResult(files, made);
    if (_terminationStatus == 0 && !_keepOutput()) _terminationStatus = interruptedStatus;
    const bool isDone = _terminationStatus == 0;
    if (isDone) {
        if (addToHistory) KVHistoryCenter::shared().addFileAndSave(made.outputURL, type);
        conversionWasSuccessful = true;
    }
    estimatedTime = 0;
    progressOfCurrentTask = 1;
    setStatusString({});
    notifyDelegatesAboutProgress();
    performPostConversionTasks();

    _taskOutput = {};
    KVLog("Conversion lasted " + QString::number(secondsSince1970() - started));
    _setTask(nullptr);
    _setOutputClaim(nullptr);
    return isDone;
}

/// A result without content is a failure; what else it lacks is a warning.
void KVAudioConversion::_checkResult(const KVAudioFileList &files, const KVPresetTask &made) {
    if (made.claim && !isCancelled() && !made.claim->isInPlace()) {
        _failureReason = KVResultCheck::lostResultText();
        _terminationStatus = lostResultStatus;
        return;
    }
    const auto plan = KVResultPlan::forFiles(files, made.task->arguments());
    const auto run = [&](const QStringList &arguments) {
        const auto probe = KVFFmpegTask::create(arguments);
        if (!probe || isCancelled()) return QByteArray();
        _setTask(*probe); // a cancel reaches it
        const QByteArray output = (*probe)->launchAndGetAllOutputData();
        _setTask(made.task);
        return isCancelled() ? QByteArray() : output;
    };
    const auto verdict =
        KVResultCheck::check(plan, made.outputURL.toLocalFile(), _report, KVProbeHelper::probe, run);
    if (isCancelled()) { // the output is removed already
        _terminationStatus = interruptedStatus;
        return;
    }
    for (const QString &warning : verdict.warnings) {
        KVLog("The result falls short: " + warning);
        addWarning(warning);
    }
    _failureReason = verdict.failure;
    if (!verdict.failure.isEmpty()) _terminationStatus = emptyResultStatus;
}

/// Makes the output stay, unless the conversion was cancelled: one of both comes first.
bool KVAudioConversion::_keepOutput() {
    const std::scoped_lock lock(_taskMutex);
    if (isCancelled()) return false;
    if (const auto claim = _outputClaim()) claim->keep();
    return true;
}

int KVAudioConversion::numberOfRunningChildren() {
    return RunningChild::number();
}

/// Runs the child to its end and answers its status.
int KVAudioConversion::_run(const KVAudioFileList &files, KVFFmpegTask &task) {
    if (isCancelled()) return interruptedStatus;
    const RunningChild running;
    if (const auto launched = task.launch(); !launched) {
        KVLog("Couldn't launch the task: " + launched.error().reason);
        _taskOutput = launched.error().reason.toUtf8() + '\n';
        return launchFailedStatus;
    }
    if (isCancelled()) stopChild(_task()); // a cancel during the launch found no child yet
    _handleTaskOutputForMediaFiles(files);
    KVLog(QString("Waiting for the end, task running ") + (task.process().isRunning() ? "YES" : "NO"));
    task.process().waitUntilExit();
    const int status = task.process().terminationStatus();
    KVLog("Task exited with status code " + QString::number(status));
    return status;
}

void KVAudioConversion::_handleTaskOutputForMediaFiles(const KVAudioFileList &files) {
    const auto task = _task();
    const auto handle = task->fileHandle();
    KVProgressAccuracy progressAccuracy{.lastSampleDate = secondsSince1970()};
    // A chunk may end inside of a character, and tags of the source may not be UTF-8.
    QStringDecoder decoder(QStringDecoder::Utf8);
    while (handle && task->process().isRunning()) {
        const QByteArray chunk = handle->availableData();
        if (chunk.isEmpty()) return; // nothing more can come, even if the child lives on
        _report.add(chunk);
        const QString text = decoder(chunk);
        if (text.isEmpty()) continue;
        _handleTaskOutputForMediaFiles(files, text, progressAccuracy);
        _taskOutput += text.toUtf8();
        _taskOutput += '\n';
    }
}

void KVAudioConversion::_handleTaskOutputForMediaFiles(const KVAudioFileList &files, const QString &line,
                                                       KVProgressAccuracy &progressAccuracy) {
    if (!line.startsWith("frame=") && !line.startsWith("size=")) {
        KVLog(line);
        return;
    }
    const auto position = KVFFmpegReport::positionInStatusLine(line);
    if (!position) return;
    const double total = std::accumulate(files.begin(), files.end(), 0.0,
                                         [](double sum, const auto &file) { return sum + file->seconds; });
    progressAccuracy.addSample(*position, secondsSince1970());
    estimatedTime = progressAccuracy.estimatedTime(*position, total);
    progressOfCurrentTask = *position / total;
    notifyDelegatesAboutProgress();
}

// Afterwards

void KVAudioConversion::performPostConversionTasks() {
    if (_terminationStatus != 0 && !isCancelled()) {
        const auto error =
            _error(_task()->arguments(), _taskOutputString(), _terminationStatus, _failureReason);
        _keepFailure(error);
        // The error centre gets no error of a later task once an earlier one was successful.
        if (!conversionWasSuccessful) return KVErrorCenter::shared().addError(error);
    }
    _setTask(nullptr);
    copyArtwork();
    const auto &preferences = KVPreferences::shared();
    if (conversionWasSuccessful && preferences.boolean(KVPreferenceKeys::AddToiTunesWhenDone, false))
        _addToiTunes();
    if (preferences.boolean(KVPreferenceKeys::PreserveCreationDate, false)) _preserveCreationDate();
}

/// No file system call here sets the date of creation, so the output takes over the date that people see: it
/// counts as changed and read when its source was changed.
void KVAudioConversion::_preserveCreationDate() const {
    const auto &files = _inWork().files;
    const auto output = outputURL();
    if (files.isEmpty() || !output) return;
    const auto date = KVFileManager::modificationDate(files.last()->url());
    QFile file(output->toLocalFile());
    if (!date || !file.open(QFile::ReadOnly | QFile::ExistingOnly)) return;
    file.setFileTime(*date, QFile::FileModificationTime);
    file.setFileTime(*date, QFile::FileAccessTime);
}

// From outside

bool KVAudioConversion::pause() {
    if (state == KVConversionState::paused) return true;
    if (const auto task = _task(); task && task->process().suspend()) {
        auto executing = KVConversionState::executing; // unless it has just finished
        state.compare_exchange_strong(executing, KVConversionState::paused);
    }
    _tellDelegates([](auto &delegate, const auto &conversion) { delegate.conversionDidPause(conversion); });
    return state == KVConversionState::paused;
}

void KVAudioConversion::resume() {
    auto paused = KVConversionState::paused;
    if (!state.compare_exchange_strong(paused, KVConversionState::executing)) return;
    if (const auto task = _task()) task->process().resume(); // absent if the child has just ended
    _tellDelegates([](auto &delegate, const auto &conversion) { delegate.conversionDidResume(conversion); });
}

void KVAudioConversion::cancel() {
    std::shared_ptr<KVFFmpegTask> task;
    {
        const std::scoped_lock lock(_taskMutex);
        KVConversion::cancel();
        task = _runningTask;
    }
    if (isFinished() || !task) return;
    stopChild(task);
    if (const auto claim = _outputClaim()) claim->discardWhatIsWritten();
}

void KVAudioConversion::killChildren() {
    if (const auto task = _task()) task->process().kill();
}

std::shared_ptr<KVFFmpegTask> KVAudioConversion::_task() const {
    const std::scoped_lock lock(_taskMutex);
    return _runningTask;
}

void KVAudioConversion::_setTask(const std::shared_ptr<KVFFmpegTask> &task) {
    const std::scoped_lock lock(_taskMutex);
    _runningTask = task;
}
