#pragma once

#include "conversion/conversions/KVConversionDelegate.h"
#include "conversion/conversions/KVConversionHost.h"
#include "conversion/conversions/KVConversionSnapshot.h"
#include "core/KVErrorCenter.h"
#include "core/KVFailureCause.h"
#include "core/KVQueueNotifications.h"
#include "kvcore/KVWeakArray.h"
#include "presets/KVPreset.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

class KVOutputClaim;
class KVSourceNames;

enum class KVConversionState { waitingToStart, executing, paused, finished };

/// The unit of work: one row of a queue, one or more media files, one preset, one output. Its `main` walks a
/// fixed sequence of numbered tasks on the worker that called `start`. A conversion never schedules itself
/// and is never run twice.
///
/// What it works with is fixed at its start: see `snapshot`. Until a worker has claimed it, its files, preset
/// and names are changed on the main thread; from then on every change is refused. Display data (state,
/// progress, times, texts) may be read from any thread.
class KVConversion : public std::enable_shared_from_this<KVConversion> {
  public:
    /// A new conversion of the class that fits the file's type.
    static std::shared_ptr<KVConversion> conversionWithMediaFile(const std::shared_ptr<KVMediaFile> &file);

    explicit KVConversion(const KVMediaFileList &mediaFiles);
    virtual ~KVConversion();
    KVConversion(const KVConversion &) = delete;
    KVConversion &operator=(const KVConversion &) = delete;

    std::atomic<bool> conversionWasSuccessful = false;
    std::atomic<int> currentSubtask = 0;   ///< Zero-based number of the present task.
    std::atomic<double> estimatedTime = 0; ///< Seconds left of the present task.
    std::atomic<bool> isReserved = false;  ///< Claimed by a worker; never given back.
    double overallProgress = 0;            ///< Never written; overall progress travels to the delegates.
    std::atomic<double> progressOfCurrentTask = 0; ///< 0 to 1; not clamped.
    std::atomic<KVConversionState> state = KVConversionState::waitingToStart;

    /// True while it waits and no worker has claimed it. To keep it so during a change of several rows, see
    /// `KVConversionQueue::edit`. Any thread.
    bool canBeChanged() const;

    /// The preset that overrides the queue's for this row; empty if none does. From the start on it is a copy
    /// of the preset as it runs, whose `original` is the one that was set. The caller notifies the delegates
    /// of a change. Setting a copy sets its original. False if the row can no longer be changed.
    std::shared_ptr<KVPreset> customPreset() const;
    bool setCustomPreset(const std::shared_ptr<KVPreset> &preset);

    /// The row's files. The list no longer changes after the start, but the worker reads copies of the files.
    /// The caller notifies the delegates of a change. False if the row can no longer be changed.
    KVMediaFileList mediaFiles() const;
    bool setMediaFiles(const KVMediaFileList &files);

    /// What runs or ran; null before the start. Any thread.
    std::shared_ptr<const KVConversionSnapshot> snapshot() const;

    /// The output, known once the task has been built.
    std::optional<QUrl> outputURL() const;
    void setOutputURL(const std::optional<QUrl> &url);

    /// A text that replaces the time estimate while it is not empty.
    QString statusString() const;
    void setStatusString(const QString &text);

    /// The output's name without extension as the user chose it; also renames a known `outputURL`, with no
    /// extension added. False from the moment that a worker has claimed the row until its end.
    std::optional<QString> outputFileName() const;
    bool setOutputFileName(const std::optional<QString> &name);

    /// A folder for this row's output alone, which comes before the queue's and the source's; empty for most
    /// rows. Set before the start.
    std::optional<QUrl> destinationFolder() const;
    void setDestinationFolder(const std::optional<QUrl> &folder);

    /// The owning queue, held strongly; its absence at run time is a programming error.
    std::shared_ptr<KVConversionHost> queue() const;
    void setQueue(const std::shared_ptr<KVConversionHost> &queue);

    KVWeakArray<KVConversionDelegate> &delegates() { return _delegates; }

    /// The custom preset, otherwise the queue's. From the start on a copy of the preset as it runs; the
    /// worker has another one.
    std::shared_ptr<KVPreset> presetInForce() const;

    /// Takes the snapshot on the main thread, then runs `main` on the calling thread and returns when it has
    /// returned.
    virtual void start();
    /// Any thread; the conversion still ends by itself, on its worker. Changes nothing once it has finished.
    virtual void cancel();
    /// For quitting: ends every child at once, also those that `cancel` does not reach. Any thread.
    virtual void killChildren() {}
    bool isCancelled() const { return _isCancelled; }
    bool isExecuting() const { return _isExecuting; }
    /// True once a task has failed. `conversionWasSuccessful` may say otherwise: it keeps an earlier task's
    /// success.
    bool hasFailed() const { return _hasFailed; }
    /// True once all tasks have succeeded. Unlike `conversionWasSuccessful`, never true of a conversion that
    /// was cancelled before its result was complete or that failed after a successful task. Any thread.
    bool hasSucceeded() const { return _hasSucceeded; }
    bool isFinished() const { return state == KVConversionState::finished; }

    /// What failed; empty if nothing did or if the user cancelled. Any thread.
    std::optional<KVConversionError> failure() const;
    /// Why it failed, as far as that was known when it failed; empty if `failure` is. Any thread.
    std::optional<KVFailureCause> failureCause() const;
    /// What a successful result lacks, one sentence each in the user's language, in the order of discovery.
    /// Any thread.
    QStringList warnings() const;
    /// Adds a sentence unless it is there already. Any thread.
    void addWarning(const QString &warning);
    void waitUntilFinished();

    /// Removes what has been written so far, unless it is complete: for the end of the process. Any thread.
    void removePartialOutput();

    virtual QString estimatedTimeString() const;
    virtual int numberOfTasks() const { return 1; }
    /// True if the conversion is now paused.
    virtual bool pause() { return false; }
    virtual void performPostConversionTasks() {}
    /// True to go on with the next task. Worker thread.
    virtual bool performTaskNumber(int number);
    virtual void resume();

    /// Of the whole conversion, from 0 to 1.
    double overallValue() const;
    /// Hands the present value to the delegates on the main thread. While an earlier value still waits there,
    /// the newer one takes its place, so that a slow main thread gathers no backlog.
    void notifyDelegatesAboutProgress();

  protected:
    virtual void main();

    /// The snapshot; without one, before the start, a programming error.
    const KVConversionSnapshot &_inWork() const;

    /// Records a failure in the error centre and keeps the first one for `failure`. `reason` is for failures
    /// without a child's text; it is not part of the report.
    void _recordError(const QStringList &arguments, const QString &output, int status,
                      const QString &reason = {});

    /// The claim on what is being written; null between tasks.
    std::shared_ptr<KVOutputClaim> _outputClaim() const;
    void _setOutputClaim(const std::shared_ptr<KVOutputClaim> &claim);

    /// Keeps the failure for `failure` without the error centre; the first one stays.
    void _keepFailure(const KVConversionError &error);
    KVConversionError _error(const QStringList &arguments, const QString &output, int status,
                             const QString &reason = {}) const;

    /// Posts to the main thread, without waiting, a call on every delegate.
    void
    _tellDelegates(std::function<void(KVConversionDelegate &, const std::shared_ptr<KVConversion> &)> call);

  private:
    void _takeSnapshot();
    void _addKnownWarnings();
    bool _performAllTasks();

    KVWeakArray<KVConversionDelegate> _delegates;
    mutable std::mutex _mutex; ///< Guards the fields below.
    std::condition_variable _finished;
    std::shared_ptr<KVPreset> _customPreset;
    KVMediaFileList _mediaFiles;
    std::optional<QUrl> _outputURL;
    QString _statusString;
    std::optional<QString> _outputFileName;
    std::shared_ptr<KVConversionHost> _queue;
    std::shared_ptr<const KVConversionSnapshot> _snapshot;
    std::shared_ptr<KVPreset> _shownPreset; ///< From the start on; a copy apart from the snapshot's.
    std::optional<QUrl> _destinationFolder;
    std::shared_ptr<KVOutputClaim> _claim;
    std::shared_ptr<KVSourceNames> _sourceNames; ///< Of the row's files until the end.
    std::optional<KVConversionError> _failure;
    std::optional<KVFailureCause> _failureCause;
    QStringList _warnings;
    bool _hasFinished = false;
    std::atomic<bool> _isCancelled = false;
    std::atomic<bool> _isExecuting = false;
    std::atomic<bool> _hasFailed = false;
    std::atomic<bool> _hasSucceeded = false;
    bool _wasCutShort = false; ///< Cancelled with tasks left, or without a result. Worker thread.
    std::atomic<double> _newestProgress = 0; ///< What the delivery that is under way will carry.
    std::atomic<bool> _isProgressDeliveryPending = false;
};
