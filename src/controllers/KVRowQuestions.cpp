#include "controllers/KVRowQuestions.h"

#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVFileManager.h"
#include "platform/KVUserQuestions.h"
#include "util/KVPreferenceKeys.h"

namespace {

constexpr qsizetype mostFilesWithoutQuestion = 5;

bool mayMakeOne(const char *message, const char *goOn, qsizetype numberOfFiles) {
    if (numberOfFiles <= mostFilesWithoutQuestion) return true;
    const auto response = KVUserQuestion::runModalOnMainThread(
        KVAlert{.messageText = KVLocalizationCenter::localized(message, {numberOfFiles}),
                .informativeText = KVLocalizationCenter::localized(
                    "The files will be converted one after the other into one output."),
                .buttons = {KVLocalizationCenter::localized(goOn), KVLocalizationCenter::localized("Cancel")},
                .buttonThatChangesNothing = 1});
    return response.isFirstButton();
}

} // namespace

bool KVRowQuestions::mayStop(const KVConversionQueue::List &rows) {
    using namespace KVPreferenceKeys;
    KVConversionQueue::List running = rows;
    running.removeIf([](const auto &row) { return row->state != KVConversionState::executing; });
    const bool asks = !running.isEmpty() &&
                      KVPreferences::shared().boolean(RequiresConfirmationOfConversionCancelation, true);
    if (!asks) return true;
    const QString message =
        running.size() > 1
            ? KVLocalizationCenter::localized(
                  "%@ conversions are still in progress. Do you wish to stop them?", {running.size()})
            : KVLocalizationCenter::localized(
                  "The conversion of '%@' is still in progress. Do you wish to cancel?",
                  {KVFileManager::lastPathComponent(running.first()->mediaFiles().first()->url())});
    const auto response = KVUserQuestion::runModalOnMainThread(
        KVAlert{.messageText = message,
                .informativeText = KVLocalizationCenter::localized(
                    "Canceling this conversion will result in losing all progress so far."),
                .buttons = {KVLocalizationCenter::localized("Keep Converting"),
                            KVLocalizationCenter::localized("Stop Conversion")},
                .suppressionTitle = KVLocalizationCenter::localized("Don't ask again")});
    if (response.isFirstButton()) return false;
    if (response.isSuppressed)
        KVPreferences::shared().setBoolean(false, RequiresConfirmationOfConversionCancelation);
    return true;
}

bool KVRowQuestions::mayMerge(qsizetype numberOfFiles) {
    return mayMakeOne("Do you want to merge %@ files into one?", "Merge", numberOfFiles);
}

bool KVRowQuestions::mayMakeDVD(qsizetype numberOfFiles) {
    return mayMakeOne("Do you want to put %@ files on one disc?", "Make DVD", numberOfFiles);
}

void KVRowQuestions::explain(const QString &reason) {
    if (reason.isEmpty()) return;
    KVUserQuestion::runModalOnMainThread(
        KVAlert{.messageText = reason, .buttons = {KVLocalizationCenter::localized("OK")}});
}

qsizetype KVRowQuestions::numberOfFiles(const KVConversionQueue::List &rows) {
    qsizetype number = 0;
    for (const auto &row : rows)
        number += row->mediaFiles().size();
    return number;
}
