#include "core/KVErrorCenter.h"

#include "core/KVFailureTable.h"
#include "core/KVQueueNotifications.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVMainThread.h"
#include "kvcore/KVText.h"
#include "platform/KVUserQuestions.h"

#include <utility>

namespace {

constexpr qsizetype longestTaskOutput = 20000;

QString textOf(const QVariant &value) {
    QStringList parts;
    if (value.typeId() == QMetaType::QVariantMap) {
        const auto map = value.toMap();
        for (const auto &[key, entry] : map.asKeyValueRange())
            parts += '"' + key + "\": " + textOf(entry);
        return parts.isEmpty() ? "[:]" : '[' + parts.join(", ") + ']';
    }
    if (value.typeId() == QMetaType::QVariantList || value.typeId() == QMetaType::QStringList) {
        for (const auto &entry : value.toList())
            parts += textOf(entry);
        return '[' + parts.join(", ") + ']';
    }
    return value.typeId() == QMetaType::QString ? '"' + value.toString() + '"' : value.toString();
}

QString reportOf(const std::vector<KVConversionError> &errors) {
    QStringList descriptions;
    for (const auto &error : errors)
        descriptions += error.description();
    return descriptions.join("\n==========================\n");
}

} // namespace

QString KVConversionError::description() const {
    QStringList files;
    for (const auto &file : mediaFiles)
        files += file->description();
    const QString output = taskOutput.size() > longestTaskOutput
                               ? KVText::truncatingMiddle(taskOutput, longestTaskOutput)
                               : taskOutput;
    return QStringList{"Input file type: [" + files.join(", ") + ']',
                       "Target preset: " + targetPreset->name + " (" + targetPreset->description() + ')',
                       "Preset settings: " + textOf(targetPreset->dictionaryRepresentation()),
                       "Arguments: " + textOf(taskArguments),
                       "Termination status: " + QString::number(terminationStatus),
                       "Task output: " + output}
        .join('\n');
}

KVErrorCenter &KVErrorCenter::shared() {
    // Never destroyed: a worker that is still alive when the process exits may record an error.
    static KVErrorCenter &center = *new KVErrorCenter;
    return center;
}

KVErrorCenter::KVErrorCenter()
    : _queueDidFinish(KVNotificationCenter::defaultCenter().addObserver<KVConversionQueue>(
          ConversionQueueDidFinish, [this](const auto &) { _conversionDidEnd(); })) {}

void KVErrorCenter::addError(const KVConversionError &error) {
    std::unique_lock lock(_lock);
    _errors.push_back(error);
    const auto observer = _observer;
    lock.unlock();
    if (observer) observer(error);
}

void KVErrorCenter::setReporter(std::function<void(const QString &)> reporter) {
    const std::scoped_lock lock(_lock);
    _reporter = std::move(reporter);
}

void KVErrorCenter::setErrorObserver(std::function<void(const KVConversionError &)> observer) {
    const std::scoped_lock lock(_lock);
    _observer = std::move(observer);
}

/// One queue's end handles all that was recorded so far, and all of it shares one verdict. The errors are
/// taken first: another queue may end, and more may fail, while the user reads the alert.
void KVErrorCenter::_conversionDidEnd() {
    std::unique_lock lock(_lock);
    const auto errors = std::exchange(_errors, {});
    const auto reporter = _reporter;
    lock.unlock();
    if (errors.empty()) return;

    const QString report = reportOf(errors);
    if (const KVFailureRow *row = KVFailureTable::alertFor(report)) {
        KVAlert alert;
        alert.messageText = KVLocalizationCenter::localized(row->alertText ? row->alertText : row->text);
        alert.informativeText =
            KVLocalizationCenter::localized(row->alertRemedy ? row->alertRemedy : row->remedy);
        alert.buttons = {KVLocalizationCenter::localized("OK")};
        alert.isReportedElsewhere = true;
        KVUserQuestion::runModalOnMainThread(alert);
    } else if (reporter && !KVText::trimmingWhitespace(report).isEmpty()) {
        KVMainThread::async([report, reporter] { reporter(report); });
    }
}
