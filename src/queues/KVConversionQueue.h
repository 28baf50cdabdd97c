#pragma once

#include "conversion/conversions/KVConversion.h"
#include "platform/KVConditionLock.h"

#include <QList>
#include <QUrl>

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
    /// Any thread.
    static bool anyQueueContainsMedia(const QUrl &url);
    static void startAllQueues();
    static void pauseAllQueues();
    /// The four queues in the order audio, video, picture, dvd.
    static std::vector<std::shared_ptr<KVConversionQueue>> allQueues();

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
    /// Replaces the rows: for reordering and merging.
    void setConversions(const List &conversions);

    /// True while workers are alive. Any thread.
    bool isWorking() const { return _threadLock.condition() > 0; }

    void appendDelegate(const std::shared_ptr<KVConversionQueueDelegate> &delegate);

    void conversionDidFinishExecuting(const std::shared_ptr<KVConversion> &conversion) override;
    void conversionWillStartExecuting(const std::shared_ptr<KVConversion> &conversion) override;
    void conversionDidReachProgress(const std::shared_ptr<KVConversion> &conversion,
                                    double progress) override;

  private:
    void _convert();
    void _conversionThread();
    int _numberOfWorkers() const;
    bool _settleDestination();
    std::shared_ptr<KVConversion> _reserveNextConversion();

    const KVMediaFileType _mediaFileType;
    mutable std::mutex _lock; ///< Guards the pick of the next conversion.
    mutable std::mutex
        _operationsMutex; ///< Guards the array itself and the two settings; held for a copy only.
    List _operations;
    KVConditionLock _threadLock; ///< Its condition is the number of live workers.
    std::atomic<int> _maximumNumberOfConcurrentConversions = 0;
    std::optional<QUrl> _outputDirectoryURL;
    mutable std::shared_ptr<KVPreset> _selectedPreset;
    std::vector<std::shared_ptr<KVConversionQueueDelegate>> _delegates;
};
