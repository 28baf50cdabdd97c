#pragma once

#include "cli/KVConsole.h"
#include "cli/KVConversionRequest.h"
#include "cli/KVExitStatus.h"
#include "cli/KVProgressDisplay.h"
#include "controllers/KVIntakeObserver.h"
#include "controllers/KVKalvoraAppDelegate.h"
#include "core/KVErrorCenter.h"
#include "queues/KVConversionQueue.h"

#include <QJsonArray>
#include <QUrl>

#include <chrono>
#include <mutex>
#include <set>
#include <unordered_map>

/// One run of "convert": takes files in, starts each queue as soon as it has something to do and follows the
/// conversions to their end. Main thread.
class KVConvertRun : public KVConversionQueueDelegate, public std::enable_shared_from_this<KVConvertRun> {
  public:
    KVConvertRun(KVConsole &console, const KVConversionRequest &request, bool isStitching);

    /// Takes the inputs in, converts all and returns at the end of the last conversion.
    void run();

    /// Ends it as soon as possible: nothing is started any more, children are interrupted.
    void cancel();

    /// Takes away what running conversions have written so far. Any thread; the process is about to end.
    void removePartialOutputs();

    bool isEverythingDone() const;
    /// True if a successful result has warnings.
    bool hasWarnings() const;
    /// False where work did not let itself be ended in time.
    bool haveWorkersEnded() const { return _haveWorkersEnded; }
    /// True if nothing was queued and nothing refused.
    bool hadNothingToDo() const { return _rows.empty() && _refusals.empty(); }
    /// One object for each conversion in queue order, then one for each refused input.
    QJsonArray report() const;

    void conversionQueueConversionDidUpdateStatus(const Queue &, const Conversion &) override;
    void conversionQueueWillStartConversion(const Queue &, const Conversion &conversion) override;
    void conversionQueueDidFailConversion(const Queue &, const Conversion &conversion) override;
    void conversionQueueDidSuccessfullyFinishConversion(const Queue &, const Conversion &conversion) override;
    void conversionQueueDidFinishAllConversions(const Queue &queue) override;

  private:
    using Clock = std::chrono::steady_clock;

    struct Row {
        Conversion conversion;
        std::optional<Clock::time_point> start;
        std::optional<double> seconds; ///< From the start to the end.
        bool isSuccessful = false;
        std::optional<KVConversionError> failure; ///< Absent if the user cancelled.
    };

    void _didQueue(const Conversion &conversion);
    void _saySubtitles(const KVConversion &conversion) const;
    void _didRefuse(const KVIntakeRefusal &refusal);
    void _advance();
    bool _mayStart() const;
    void _stitch();
    bool _isDone() const;
    Row *_rowOf(const Conversion &conversion);
    void _didEnd(const Conversion &conversion, bool isSuccessful);
    void _sayEnd(const Row &row) const;
    void _sayFailure(const Row &row) const;
    QString _errorText(const Row &row) const;
    void _updateCounts();
    QJsonObject _object(const Row &row) const;

    KVConsole &_console;
    const KVConversionRequest &_request;
    const bool _isStitching;
    const std::shared_ptr<KVProgressDisplay> _display;
    KVKalvoraAppDelegate _intake;
    std::vector<Row> _rows;
    std::unordered_map<const KVConversion *, size_t> _rowNumbers;
    std::vector<KVIntakeRefusal> _refusals; ///< Those that count as failures.
    std::set<Queue> _runningQueues;
    qsizetype _numberOfEnded = 0;
    QList<QUrl> _inputsToCome; ///< Those that wait until the ones before them are taken in.
    bool _hasNews = false;     ///< Something may have to be started.
    bool _hasFolders = false;
    bool _isStitched = false;
    bool _isCancelled = false;
    bool _haveWorkersEnded = true;

    std::mutex _mutex; ///< Guards what follows; other threads use it.
    std::set<Conversion> _runningConversions;
};
