#include "controllers/KVApplicationController.h"
#include "core/KVUndoStack.h"
#include "platform/KVScriptedQuestions.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "util/KVPreferenceKeys.h"

namespace {

/// Writes down what the application asks of the desktop.
class Desktop : public KVApplicationServices, public KVConversionProgressBar {
  public:
    void postUserNotification(const QString &title, const QString &, const QString &) override {
        events += title;
    }
    void playFinishedSound() override { events += "sound"; }
    void putComputerToSleep() override { events += "sleep"; }
    void requestUserAttention() override {}
    void openURL(const QUrl &) override {}
    void showInFileManager(const QUrl &) override {}
    void setKeepsAwake(bool keepsAwake) override { isKeptAwake = keepsAwake; }
    void showTaskbarProgress(std::optional<double>) override {}
    QString countryCode() const override { return {}; }
    bool isSandboxed() const override { return false; }
    bool isVisible() const override { return false; }
    void slideIn(const QString &) override {}
    void slideOut() override {}
    void setProgress(double, const QString &) override {}

    QStringList events;
    bool isKeptAwake = false;
};

} // namespace

class KVApplicationControllerTest : public KVTestCase {
  protected:
    void SetUp() override {
        KVUserQuestion::setResponder(questions);
        KVConversionQueue::addDelegateToAllQueues(controller);
        queue->setSelectedPreset(KVPreset::presetNamed("Ogg (Audio)"));
    }

    void TearDown() override {
        controller->applicationWillTerminate();
        for (const auto &each : KVConversionQueue::allQueues())
            each->setConversions({});
        KVUndoStack::shared().clear();
    }

    std::shared_ptr<KVConversion> row(const QString &name, double seconds) {
        const QUrl url = QUrl::fromLocalFile(KVTestMedia::tone(path(name), seconds));
        return queue->createConversion(KVMediaFile::mediaFile(url).value(), nullptr, true);
    }

    bool hasEnded() const { return desktop.events.contains("All conversions are done!"); }

    Desktop desktop;
    bool isTerminated = false;
    std::shared_ptr<KVScriptedQuestions> questions = std::make_shared<KVScriptedQuestions>();
    std::shared_ptr<KVConversionQueue> queue = KVConversionQueue::queue(KVMediaFileType::audio);
    std::shared_ptr<KVApplicationController> controller =
        std::make_shared<KVApplicationController>(KVApplicationController::Surroundings{
            .services = desktop,
            .progressBar = desktop,
            .showReleaseNotes = [] {},
            .terminate = [this] { isTerminated = true; },
        });
};

TEST_F(KVApplicationControllerTest, TheActionsAtTheEndComeOnceAlsoAfterARowThatWasStartedByItself) {
    KVPreferences::shared().setBoolean(true, KVPreferenceKeys::PutComputerToSleepOnDone);
    KVPreferences::shared().setBoolean(true, KVPreferenceKeys::QuitKalvoraAfterFinishingConversion);
    const auto conversion = row("a.wav", 0.3);
    queue->startConversion(conversion);
    ASSERT_TRUE(runUntil([&] { return desktop.isKeptAwake; }));
    ASSERT_TRUE(runUntil([&] { return isTerminated; }));
    EXPECT_EQ(desktop.events,
              (QStringList{"Conversion finished!", "All conversions are done!", "sound", "sleep"}));
    EXPECT_FALSE(desktop.isKeptAwake);
}

TEST_F(KVApplicationControllerTest, NothingEndsAndQuittingAsksWhileARowRunsOrIsPaused) {
    const auto alone = row("long.wav", 2000);
    queue->startConversion(alone);
    ASSERT_TRUE(runUntil([&] { return alone->overallValue() > 0; }));
    ASSERT_FALSE(KVConversionQueue::isAnyQueueWorking());
    row("b.wav", 0.3);
    controller->start();
    ASSERT_TRUE(runUntil([&] { return desktop.events.contains("Conversion finished!"); }));
    ASSERT_TRUE(runUntil([] { return !KVConversionQueue::isAnyQueueWorking(); }));
    runUntil([] { return false; }, 0.2);
    EXPECT_FALSE(hasEnded());
    EXPECT_TRUE(desktop.isKeptAwake);

    controller->pause();
    ASSERT_EQ(alone->state, KVConversionState::paused);
    EXPECT_EQ(controller->applicationShouldTerminate(), KVApplicationController::TerminateReply::cancel);
    ASSERT_EQ(questions->alerts.size(), 1U);
    EXPECT_EQ(questions->alerts.front().buttons, (QStringList{"Keep Converting", "Quit"}));
    EXPECT_EQ(alone->state, KVConversionState::paused);

    queue->cancelConversion(alone);
    EXPECT_TRUE(runUntil([&] { return hasEnded() && !desktop.isKeptAwake; }));
}

TEST_F(KVApplicationControllerTest, ClearingKeepsFailedRowsAndCanBeUndone) {
    row("a.wav", 0.3);
    const auto failing = row("b.wav", 0.3);
    QFile::remove(path("b.wav"));
    controller->start();
    ASSERT_TRUE(runUntil([&] { return hasEnded(); }));
    controller->clearFinishedConversionsInQueue(-1);
    EXPECT_EQ(queue->conversions(), KVConversionQueue::List{failing});
    controller->clearInactiveConversionsInQueue(1);
    EXPECT_TRUE(queue->conversions().isEmpty());
    KVUndoStack::shared().undo();
    KVUndoStack::shared().undo();
    EXPECT_EQ(queue->conversions().size(), 2);
    EXPECT_EQ(queue->conversions().last(), failing);
    EXPECT_TRUE(failing->hasFailed());
}
