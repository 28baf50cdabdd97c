#pragma once

#include "conversion/conversions/KVConversion.h"
#include "platform/KVConditionLock.h"
#include "queues/KVWorkerThreads.h"
#include "util/KVPreferenceKeys.h"

#include <QList>
#include <QSet>
#include <QUrl>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

class KVConversionQueue;

/// Told, on the main thread, about what happens in a queue.
class KVConversionQueueDelegate {
  public:
    using Queue = std::shared_ptr<KVConversionQueue>;
    using Conversion = std::shared_ptr<KVConversion>;

    virtual ~KVConversionQueueDelegate() = default;
    virtual void conversionQueueConversionDidUpdateStatus(const Queue &, const Conversion &) {}
    virtual void conversionQueueDidFailConversion(const Queue &, const Conversion &) {}
    virtual void conversionQueueDidSuccessfullyFinishConversion(const Queue &, const Conversion &) {}
    virtual void conversionQueueWillStartConversion(const Queue &, const Conversion &) {}
    virtual void conversionQueueDidFinishAllConversions(const Queue &) {}
    /// Nothing of the queue executes or is paused any more, whoever started it. Comes last, once per period
    /// of work: also after a row that was started by itself.
    virtual void conversionQueueDidBecomeIdle(const Queue &) {}
};

/// Decides which conversion runs, when, on which thread and how many at once. One queue per media type; they
/// run side by side, each with its own workers, and live until the end of the program. Everything public is
/// called on the main thread, except where said otherwise.
class KVConversionQueue : public KVConversionHost,
                          public KVConversionDelegate,
                          public std::enable_shared_from_this<KVConversionQueue> {
  public:
    using List = QList<std::shared_ptr<KVConversion>>;

    /// The queue of that type, made on demand.
    static std::shared_ptr<KVConversionQueue> queue(KVMediaFileType type);
    static bool isAnyQueueWorking();
    /// Of all conversions of all queues, 0 to 1; 0 with none.
    static double totalProgress();
    static void addDelegateToAllQueues(const std::shared_ptr<KVConversionQueueDelegate> &delegate);
    static void removeDelegateFromAllQueues(const std::shared_ptr<KVConversionQueueDelegate> &delegate);
    /// Any thread.
    static bool anyQueueContainsMedia(const QUrl &url);
    static void startAllQueues();
    static void pauseAllQueues();
    /// The four queues in the order audio, video, picture, dvd.
    static std::vector<std::shared_ptr<KVConversionQueue>> allQueues();

    /// For quitting: no further row is picked, all conversions of all queues are cancelled, and the event
    /// loop runs until the workers have ended; children that do not end by themselves are killed at half of
    /// the time. False if a worker is still alive after `seconds`.
    static bool cancelAllAndWait(double seconds);

    /// How many conversions run at once.
    static int numberOfWorkers(int processorCount, const std::optional<QString> &threadCountArgument,
                               KVCPUSettings setting);

    explicit KVConversionQueue(KVMediaFileType type);
    ~KVConversionQueue() override;

    KVMediaFileType mediaFileType() const { return _mediaFileType; }
    int maximumNumberOfConcurrentConversions() const;

    std::optional<QUrl> outputDirectoryURL() const override; ///< Any thread.
    void setOutputDirectoryURL(const std::optional<QUrl> &url);
    /// The type's default preset on the first read. Any thread after that.
    std::shared_ptr<KVPreset> selectedPreset() const override;
    void setSelectedPreset(const std::shared_ptr<KVPreset> &preset);

    std::shared_ptr<KVConversion> createConversion(const std::shared_ptr<KVMediaFile> &file,
                                                   const std::shared_ptr<KVPreset> &customPreset,
                                                   bool addToQueue);
    /// Puts a conversion that `createConversion` has not added before the row `index`; at the end for the
    /// number of rows.
    void insertConversion(const std::shared_ptr<KVConversion> &conversion, qsizetype index);
    /// Starts the queue or, while it runs, resumes its paused conversions.
    void start();
    /// Suspends what this queue is running.
    void pause();
    /// Runs one waiting conversion at once, outside of the workers.
    void startConversion(const std::shared_ptr<KVConversion> &conversion);
    /// Cancels it and removes it from the list.
    void cancelConversion(const std::shared_ptr<KVConversion> &conversion);

    /// Conversions (not files) in the state `waitingToStart`. Any thread.
    int numberOfFilesWaitingToBeConverted() const;

    /// All rows in display order, finished ones included until removed. A snapshot; any thread.
    List conversions() const;
    /// Runs `change` at once if all `rows` are in this queue and can be changed; false, with nothing done, if
    /// not. No worker picks a row meanwhile, so that none of them starts half-way: for merging and the like.
    /// The main thread may ask the user inside; what can be changed stays so until `change` has returned.
    bool edit(const List &rows, const std::function<void()> &change);
    /// Replaces the rows. See KVRowEdits for changes that the user makes.
    void setConversions(const List &conversions);

    /// True while any conversion of any queue executes or is paused, also one that was started by itself, and
    /// while a run of a queue goes on. Any thread.
    static bool isAnyConversionRunning();
    /// The same of this queue alone.
    bool isAnythingRunning() const;
    /// True while workers are alive. Any thread.
    bool isWorking() const { return _threadLock.condition() > 0; }

    void appendDelegate(const std::shared_ptr<KVConversionQueueDelegate> &delegate);
    void removeDelegate(const std::shared_ptr<KVConversionQueueDelegate> &delegate);

    void conversionDidUpdateFiles(const std::shared_ptr<KVConversion> &conversion) override;
    void conversionDidFinishExecuting(const std::shared_ptr<KVConversion> &conversion) override;
    void conversionWillStartExecuting(const std::shared_ptr<KVConversion> &conversion) override;
    void conversionDidReachProgress(const std::shared_ptr<KVConversion> &conversion,
                                    double progress) override;

  private:
    static std::vector<std::shared_ptr<KVConversionQueue>> _existingQueues();

    void _resumePausedConversions();
    void _convert();
    void _conversionThread();
    bool _settleDestination();
    bool _chooseDestination();
    std::unique_lock<std::mutex> _lockForPick();
    std::shared_ptr<KVConversion> _reserveNextConversion();
    bool _reserve(const std::shared_ptr<KVConversion> &conversion);
    void _tellDelegatesIfIdle();
    void _run(const std::shared_ptr<KVConversion> &conversion);
    List _runningConversions() const;
    bool _containsMedia(const QUrl &url) const;
    static bool _endWorkers(const std::vector<std::shared_ptr<KVConversionQueue>> &queues, double seconds);
    void _setIsQuitting(bool isQuitting);
    template <class Call>
    void _tellDelegates(Call call);

    const KVMediaFileType _mediaFileType;

    mutable std::mutex _lock; ///< Guards the pick of the next conversion and the two flags below.
    std::condition_variable _pickIsPossible;
    bool _isSettlingDestination = false; ///< Workers wait, as long as the user is being asked.
    int _numberOfEdits = 0;              ///< Workers wait, as long as rows are being changed.
    bool _isQuitting = false;            ///< Nothing is picked or started any more.
    bool _isStarting = false;            ///< From `start` until the workers are counted.

    std::mutex _runMutex;        ///< Held by a run from its start to its end.
    KVConditionLock _threadLock; ///< Its condition is the number of live workers.
    KVWorkerThreads _workers;
    std::atomic<int> _maximumNumberOfConcurrentConversions = 0;
    std::atomic<int> _numberOfSingleRuns = 0; ///< Of rows that were started by themselves.

    mutable std::mutex _fieldsMutex; ///< Guards the fields below; held for a copy only.
    List _operations;
    List _running;                 ///< What a worker is at, also when it has left `_operations`.
    mutable QSet<QUrl> _mediaURLs; ///< Of all rows, so that taking in thousands of files stays quick.
    mutable bool _areMediaURLsKnown = false;
    std::optional<QUrl> _outputDirectoryURL;
    mutable std::shared_ptr<KVPreset> _selectedPreset;
    std::vector<std::shared_ptr<KVConversionQueueDelegate>> _delegates;
};
