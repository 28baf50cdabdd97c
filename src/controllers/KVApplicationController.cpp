#include "controllers/KVApplicationController.h"

#include "controllers/KVTimeLeft.h"
#include "core/KVErrorCenter.h"
#include "kvcore/KVBookmark.h"
#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVMainThread.h"
#include "platform/KVFileManager.h"
#include "platform/KVUserQuestions.h"
#include "tasks/KVHardwareAcceleration.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVTempDirectory.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

using namespace KVPreferenceKeys;

namespace {

// Where television is NTSC.
constexpr std::array ntscCountries{"US", "CA", "MX", "BB", "CU", "DO", "SV", "GT", "HT", "HN",
                                   "NI", "PA", "BO", "EC", "CO", "GY", "JP", "KR", "PH", "WS"};

// The question for a review comes at this many finished conversions, once.
constexpr int conversionsUntilReview = 20;

// Quitting in the middle of work takes no longer.
constexpr double secondsForCancelling = 2;

const KVPreferences::Key didSeeReleaseNotes{"KVDidSeeReleaseNotes1202"};

bool isOn(const KVPreferences::Key &key) {
    return KVPreferences::shared().boolean(key, false);
}

} // namespace

KVApplicationController::KVApplicationController(Surroundings surroundings)
    : _surroundings(std::move(surroundings))
    , _notifications(_surroundings.services) {}

KVApplicationController::~KVApplicationController() {
    _counting.waitUntilIdle();
}

void KVApplicationController::applicationDidFinishLaunching() {
    // Its test takes a moment: the result is there before anyone can press Start.
    KVHardwareAcceleration::shared();
    KVErrorCenter::shared();
    KVTempDirectoryURL();
    KVCleanTempDirectory();
    if (!isOn(HasGuessedLocation)) {
        _guessLocation();
        KVPreferences::shared().perform([] { KVPreferences::shared().setBoolean(true, HasGuessedLocation); });
    }
    if (_surroundings.services.isSandboxed() && !isOn(HasPerformedSandoxTransition))
        _performSandboxTransition();
    KVConversionQueue::addDelegateToAllQueues(shared_from_this());
    _showReleaseNotesOnce();
}

void KVApplicationController::applicationWillTerminate() {
    cancelLoading();
    // What is cancelled now is no end of the work: nobody is told, and the machine is not sent to sleep.
    KVConversionQueue::removeDelegateFromAllQueues(shared_from_this());
    // Children and partial outputs go with the program.
    KVConversionQueue::cancelAllAndWait(secondsForCancelling);
    KVCleanTempDirectory();
}

void KVApplicationController::_guessLocation() {
    const QString country = _surroundings.services.countryCode();
    if (country.isEmpty()) return;
    const bool isNTSC = std::ranges::find(ntscCountries, country.toStdString()) != ntscCountries.end();
    KVPreferences::shared().setBoolean(isNTSC, UsesNTSCFormat);
}

void KVApplicationController::_performSandboxTransition() {
    KVUserQuestion::runModalOnMainThread(KVAlert{
        .messageText = KVLocalizationCenter::localized(
            "This is the first time you're running Kalvora. You need to select a "
            "folder where to save all converted files."),
        .informativeText =
            KVLocalizationCenter::localized("Press cancel in the following open dialog to be asked for "
                                            "destination for each conversion."),
        .buttons = {KVLocalizationCenter::localized("OK")}});
    const auto chosen = KVUserQuestion::runModalOnMainThread(KVOpenPanel{});
    if (!chosen.isEmpty()) {
        KVAppScopeBookmarksManager::setURL(chosen.first(), FixedDestinationBookmark);
    } else {
        KVUserQuestion::runModalOnMainThread(
            KVAlert{.messageText = KVLocalizationCenter::localized(
                        "Kalvora will ask you for a destination for each conversion."),
                    .informativeText =
                        KVLocalizationCenter::localized("This can be changed later on in the preferences."),
                    .buttons = {KVLocalizationCenter::localized("OK")}});
        KVAppScopeBookmarksManager::removeURL(FixedDestinationBookmark);
    }
    KVPreferences::shared().setBoolean(true, HasPerformedSandoxTransition);
}

void KVApplicationController::_showReleaseNotesOnce() {
    if (isOn(didSeeReleaseNotes)) return;
    _surroundings.showReleaseNotes();
    KVPreferences::shared().perform([] { KVPreferences::shared().setBoolean(true, didSeeReleaseNotes); });
}

KVApplicationController::TerminateReply KVApplicationController::applicationShouldTerminate() {
    if (KVConversionQueue::isAnyQueueWorking()) {
        const KVAlertResponse response = KVUserQuestion::runModalOnMainThread(KVAlert{
            .messageText = KVLocalizationCenter::localized("Do you really want to quit %@?",
                                                           {QCoreApplication::applicationName()}),
            .informativeText = KVLocalizationCenter::localized("All of the conversions will be cancelled."),
            .buttons = {KVLocalizationCenter::localized("Cancel"), KVLocalizationCenter::localized("Quit")}});
        if (response.isFirstButton()) return TerminateReply::cancel;
    }
    applicationWillTerminate();
    return TerminateReply::now;
}

void KVApplicationController::start() {
    // A paused row that was started by itself belongs to no run that its queue could resume.
    for (const auto &queue : KVConversionQueue::allQueues()) {
        if (queue->isWorking()) continue;
        for (const auto &conversion : queue->conversions())
            if (conversion->state == KVConversionState::paused) conversion->resume();
    }
    KVConversionQueue::startAllQueues();
}

void KVApplicationController::pause() {
    KVConversionQueue::pauseAllQueues();
}

void KVApplicationController::makeDVD() {
    const auto queue = KVConversionQueue::queue(KVMediaFileType::video);
    auto waiting = queue->conversions();
    waiting.removeIf(
        [](const auto &conversion) { return conversion->state != KVConversionState::waitingToStart; });
    if (waiting.isEmpty()) return;

    const auto disc = waiting.takeFirst();
    for (const auto &other : waiting) {
        disc->setMediaFiles(disc->mediaFiles() + other->mediaFiles());
        queue->cancelConversion(other);
    }
    disc->setCustomPreset(KVPreset::presetNamed("DVD"));
    for (const auto &delegate : disc->delegates().allValues()) {
        delegate->conversionDidUpdateFiles(disc);
        delegate->conversionDidChangePreset(disc);
    }
}

void KVApplicationController::clearFinishedConversionsInQueue(int tag) {
    _clearConversions([](const KVConversion &conversion) { return conversion.isFinished(); }, tag);
}

void KVApplicationController::clearInactiveConversionsInQueue(int tag) {
    _clearConversions(
        [](const KVConversion &conversion) {
            return conversion.isFinished() || conversion.state == KVConversionState::waitingToStart;
        },
        tag);
}

void KVApplicationController::_clearConversions(const std::function<bool(const KVConversion &)> &matches,
                                                int tag) {
    const auto types = [tag]() -> std::vector<KVMediaFileType> {
        switch (tag) {
        case -1:
            return {KVMediaFileTypes::allTypes.begin(), KVMediaFileTypes::allTypes.end()};
        case 0:
            return {KVMediaFileType::video};
        case 1:
            return {KVMediaFileType::audio};
        case 2:
            return {KVMediaFileType::picture};
        default:
            KVFatalError(QStringLiteral("Can't handle queue under tag %1").arg(tag));
        }
    };
    for (const KVMediaFileType type : types()) {
        const auto queue = KVConversionQueue::queue(type);
        for (const auto &conversion : queue->conversions())
            if (matches(*conversion)) queue->cancelConversion(conversion);
    }
}

void KVApplicationController::askForReview() {
    const KVAlertResponse response = KVUserQuestion::runModalOnMainThread(KVAlert{
        .messageText = KVLocalizationCenter::localized(
            "You seem to be enjoying using Kalvora! If you like Kalvora, please, rate it on "
            "the AppStore."),
        .informativeText =
            KVLocalizationCenter::localized("This message will not be shown to you again, don't worry."),
        .buttons = {KVLocalizationCenter::localized("Rate"), KVLocalizationCenter::localized("Cancel")},
        .buttonThatChangesNothing = 1});
    if (response.isFirstButton())
        _surroundings.services.openURL(QUrl(QStringLiteral("appstream://com.brenholt.Kalvora")));
}

void KVApplicationController::conversionQueueWillStartConversion(const Queue &,
                                                                 const Conversion &conversion) {
    KVLog("Will start " + KVFileManager::lastPathComponent(conversion->mediaFiles().first()->url()));
    _surroundings.services.setKeepsAwake(true);
    if (!_surroundings.progressBar.isVisible())
        _surroundings.progressBar.slideIn(KVLocalizationCenter::localized("Starting..."));
}

void KVApplicationController::conversionQueueConversionDidUpdateStatus(const Queue &, const Conversion &) {
    const double total = KVConversionQueue::totalProgress();
    _surroundings.progressBar.setProgress(total, KVTimeLeft::text());
    _surroundings.services.showTaskbarProgress(total);
    if (total == 1.0 && !KVConversionQueue::isAnyQueueWorking()) _surroundings.progressBar.slideOut();
}

void KVApplicationController::conversionQueueDidSuccessfullyFinishConversion(const Queue &,
                                                                             const Conversion &conversion) {
    _countConversion();
    _notifications.conversionDidEnd(*conversion);
    _letSleepWithout(conversion);
}

void KVApplicationController::conversionQueueDidFailConversion(const Queue &, const Conversion &conversion) {
    _notifications.conversionDidEnd(*conversion);
    _letSleepWithout(conversion);
}

/// The store is written and synced on a thread of its own: a busy disk is no reason for the window to stand
/// still.
void KVApplicationController::_countConversion() {
    _counting.async([this, self = weak_from_this()] {
        qint64 count = 0;
        KVPreferences::shared().update(NumberOfConversionPerformed, [&](const QVariant &current) {
            count = current.toLongLong() + 1;
            return QVariant(count);
        });
        if (count != conversionsUntilReview) return;
        KVMainThread::async([this, self] {
            if (const auto alive = self.lock()) askForReview();
        });
    });
}

/// A row that was started by itself tells no end of a queue. The row itself is about to be finished.
void KVApplicationController::_letSleepWithout(const Conversion &endedConversion) {
    if (KVConversionQueue::isAnyQueueWorking()) return;
    for (const auto &queue : KVConversionQueue::allQueues())
        for (const auto &conversion : queue->conversions())
            if (conversion != endedConversion && conversion->state == KVConversionState::executing) return;
    _surroundings.services.setKeepsAwake(false);
    _surroundings.services.showTaskbarProgress(std::nullopt);
}

void KVApplicationController::conversionQueueDidFinishAllConversions(const Queue &) {
    // The actions run once, when the last queue ends.
    if (KVConversionQueue::isAnyQueueWorking()) return;
    KVApplicationServices &services = _surroundings.services;
    services.setKeepsAwake(false);
    services.showTaskbarProgress(std::nullopt);
    _notifications.runDidEnd();
    if (!isOn(DontPlaySoundOnDone)) services.playFinishedSound();
    if (isOn(PutComputerToSleepOnDone)) services.putComputerToSleep();
    if (isOn(BounceIconInDockOnDone)) services.requestUserAttention();
    // Later: the queue's thread, for whose end quitting waits, waits for us here.
    if (isOn(QuitKalvoraAfterFinishingConversion))
        KVMainThread::async([this, self = weak_from_this()] {
            if (const auto alive = self.lock()) _surroundings.terminate();
        });
    if (!KVConversionQueue::isAnyQueueWorking()) _surroundings.progressBar.slideOut();
}
