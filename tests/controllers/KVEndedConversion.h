#pragma once

#include "conversion/conversions/KVVideoConversion.h"
#include "queues/KVConversionQueue.h"

/// A video's conversion that runs no child: it ends at once, in the way that it was made for.
class KVEndedConversion : public KVVideoConversion {
  public:
    struct Failure {
        QStringList arguments{};
        QString output{};
        int status = 1;
        QString reason{};
    };

    using KVVideoConversion::KVVideoConversion;

    std::optional<Failure> failureToRecord;
    bool failsWithoutRecord = false; ///< As where the user gives no place for the result.

    /// A waiting row of the queue of videos.
    static std::shared_ptr<KVEndedConversion> make(const KVMediaFileList &files,
                                                   const std::optional<Failure> &failure = {}) {
        const auto conversion = std::make_shared<KVEndedConversion>(files);
        conversion->failureToRecord = failure;
        const auto queue = KVConversionQueue::queue(KVMediaFileType::video);
        conversion->setQueue(queue);
        queue->insertConversion(conversion, queue->conversions().size());
        return conversion;
    }

    /// The same row when it has run.
    static std::shared_ptr<KVEndedConversion> run(const KVMediaFileList &files,
                                                  const std::optional<Failure> &failure = {},
                                                  const QStringList &warnings = {}) {
        const auto conversion = make(files, failure);
        for (const QString &warning : warnings)
            conversion->addWarning(warning);
        conversion->start();
        return conversion;
    }

    bool performTaskNumber(int) override {
        if (failureToRecord)
            _recordError(failureToRecord->arguments, failureToRecord->output, failureToRecord->status,
                         failureToRecord->reason);
        return !failureToRecord && !failsWithoutRecord;
    }
};
