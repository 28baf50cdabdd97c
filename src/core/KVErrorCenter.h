#pragma once

#include "kvcore/KVNotificationCenter.h"
#include "presets/KVPreset.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

/// One failed conversion.
struct KVConversionError {
    KVMediaFileList mediaFiles;
    std::shared_ptr<KVPreset> targetPreset;
    QStringList taskArguments; ///< Empty where no child ran.
    QString taskOutput;        ///< All that the child said, or a short text of our own.
    int terminationStatus = 0; ///< The child's; 1 and -1 for failures of our own.
    QString reason{};          ///< What a person should know where no child said it; no part of the report.

    /// The report of this failure, several lines.
    QString description() const;
};

/// Collects what went wrong during a run and tells the user when a queue has ended: a plain alert for the
/// causes that a person can mend, the reporter for everything else.
class KVErrorCenter {
  public:
    static KVErrorCenter &shared();

    /// Any thread.
    void addError(const KVConversionError &error);

    /// Who gets a report that no plain alert covers; called on the main thread. Without one the report is
    /// dropped.
    void setReporter(std::function<void(const QString &report)> reporter);

    /// Told of every error at the moment it is recorded, on the recording thread. For a front end without a
    /// window.
    void setErrorObserver(std::function<void(const KVConversionError &error)> observer);

  private:
    KVErrorCenter();
    void _conversionDidEnd();

    std::mutex _lock;
    std::vector<KVConversionError> _errors;
    std::function<void(const QString &)> _reporter;
    std::function<void(const KVConversionError &)> _observer;
    KVNotificationCenter::Observation _queueDidFinish;
};
