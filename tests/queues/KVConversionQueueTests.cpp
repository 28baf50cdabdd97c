#include "kvcore/KVMainThread.h"
#include "platform/KVScriptedQuestions.h"
#include "support/KVEngineTestCase.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVTempDirectory.h"

#include <QDateTime>

#include <csignal>
#include <cstdlib>

namespace {

using KVConversionQueueTest = KVEngineTestCase;

TEST_F(KVConversionQueueTest, RunsAsManyConversionsAsThePresetAndTheProcessorsAllow) {
    struct Row {
        int processors;
        std::optional<QString> threads;
        KVCPUSettings setting;
        int workers;
    };
    using enum KVCPUSettings;
    const std::vector<Row> rows{{8, "3", high, 3}, {8, "3", medium, 1}, {8, "3", low, 1},
                                {2, {}, low, 1},   {2, {}, high, 2},    {16, {}, low, 4},
                                {4, "8", high, 1}, {6, "4", medium, 1}, {8, "2.5 or so", high, 4}};
    for (const Row &row : rows)
        EXPECT_EQ(KVConversionQueue::numberOfWorkers(row.processors, row.threads, row.setting), row.workers)
            << row.processors << " processors, " << row.threads.value_or("no").toStdString() << " threads";
}

TEST_F(KVConversionQueueTest, PicksInTheOrderOfTheRowsAlsoWhatIsAddedAndMovedMeanwhile) {
    runOneByOne();
    for (const char *name : {"good.1.wav", "good.2.wav", "good.3.wav"})
        add(name);
    bool hasAdded = false;
    double allAt = 0, didFinishAt = 0;
    const auto now = [] { return double(QDateTime::currentMSecsSinceEpoch()) / 1000; };
    auto &center = KVNotificationCenter::defaultCenter();
    const auto started = center.addObserver<KVConversion>(ConversionDidStart, [&](const auto &) {
        if (std::exchange(hasAdded, true)) return;
        add("good.4.wav");
        auto rows = queue()->conversions();
        rows.swapItemsAt(1, 2);
        queue()->setConversions(rows);
    });
    const auto finished = center.addObserver<KVConversionQueue>(ConversionQueueDidFinish, [&](const auto &) {
        didFinishAt = now();
        EXPECT_EQ(recorder->events.last(), "all");
        EXPECT_FALSE(KVConversionQueue::isAnyQueueWorking());
    });
    queue()->start();
    ASSERT_TRUE(runUntil([&] { return recorder->events.contains("all"); }));
    allAt = now();
    ASSERT_TRUE(runUntil([&] { return didFinishAt > 0; }));
    EXPECT_GE(didFinishAt - allAt, 0.09);
    EXPECT_EQ(recorder->events, (QStringList{"start good.1.wav", "done good.1.wav", "start good.3.wav",
                                             "done good.3.wav", "start good.2.wav", "done good.2.wav",
                                             "start good.4.wav", "done good.4.wav", "all"}));
    EXPECT_EQ(queue()->maximumNumberOfConcurrentConversions(), 1);
    EXPECT_GT(recorder->statusUpdates, 0);
}

TEST_F(KVConversionQueueTest, PicksNoRowWhileRowsAreBeingChanged) {
    runOneByOne();
    const auto first = add("good.1.wav");
    const auto second = add("good.2.wav");
    const bool isEdited = queue()->edit({first, second}, [&] {
        queue()->start();
        queue()->startConversion(second);
        runUntil([] { return false; }, 0.2);
        EXPECT_TRUE(first->canBeChanged() && second->canBeChanged());
        EXPECT_TRUE(first->setMediaFiles(first->mediaFiles() + second->mediaFiles()));
        queue()->cancelConversion(second);
        queue()->setConversions({first});
    });
    EXPECT_TRUE(isEdited);
    ASSERT_TRUE(runUntil([&] { return recorder->events.contains("all"); }));
    EXPECT_EQ(recorder->events.count("done good.1.wav"), 1);
    EXPECT_EQ(first->snapshot()->files.size(), 2);
    bool wasCalled = false;
    EXPECT_FALSE(queue()->edit({first}, [&] { wasCalled = true; }));  // finished
    EXPECT_FALSE(queue()->edit({second}, [&] { wasCalled = true; })); // no longer in the queue
    EXPECT_FALSE(wasCalled);
}

TEST_F(KVConversionQueueTest, ReportsWhenNothingRunsAnyMoreWhoeverStartedIt) {
    struct Idle : KVConversionQueueDelegate {
        int count = 0;
        void conversionQueueDidBecomeIdle(const Queue &) override {
            ++count;
            EXPECT_FALSE(KVConversionQueue::isAnyConversionRunning());
        }
    };
    const auto idle = std::make_shared<Idle>();
    queue()->appendDelegate(idle);
    const auto alone = add("endless.wav");
    queue()->startConversion(alone);
    const int child = pidOf("endless");
    EXPECT_FALSE(KVConversionQueue::isAnyQueueWorking());
    EXPECT_TRUE(KVConversionQueue::isAnyConversionRunning());
    alone->pause();
    EXPECT_TRUE(KVConversionQueue::isAnyConversionRunning());
    add("good.wav");
    runToEnd();
    EXPECT_EQ(idle->count, 0); // the paused one is left
    alone->resume();
    ::kill(child, SIGKILL);
    EXPECT_TRUE(runUntil([&] { return idle->count == 1; }));
    runUntil([] { return false; }, 0.2);
    EXPECT_EQ(idle->count, 1);
    queue()->removeDelegate(idle);
}

TEST_F(KVConversionQueueTest, DoesNothingWithoutWaitingRows) {
    int starts = 0;
    const auto observation = KVNotificationCenter::defaultCenter().addObserver<KVConversionQueue>(
        ConversionQueueDidStart, [&](const auto &) { ++starts; });
    queue()->start();
    add("good.wav");
    runToEnd();
    queue()->start(); // a finished row is never run again
    runUntil([] { return false; }, 0.2);
    EXPECT_EQ(starts, 1);
    EXPECT_FALSE(queue()->isWorking());
}

TEST_F(KVConversionQueueTest, StartsNoFurtherWorkersWhileItRuns) {
    runOneByOne();
    add("endless.wav");
    const auto waiting = add("good.wav");
    queue()->start();
    queue()->start(); // before the workers are there
    pidOf("endless");
    queue()->start();
    runUntil([] { return false; }, 0.2);
    EXPECT_EQ(waiting->state, KVConversionState::waitingToStart);
    EXPECT_EQ(queue()->numberOfFilesWaitingToBeConverted(), 1);
    queue()->cancelConversion(queue()->conversions().first());
    runToEnd();
    EXPECT_EQ(queue()->conversions().size(), 1);
    EXPECT_EQ(recorder->events, (QStringList{"start endless.wav", "fail endless.wav", "start good.wav",
                                             "done good.wav", "all"}));
}

TEST_F(KVConversionQueueTest, RunsOneRowAtOnceOutsideOfTheRowOfWorkers) {
    runOneByOne();
    add("endless.wav");
    const auto picked = queue()->conversions().first();
    add("good.1.wav");
    const auto urgent = add("good.2.wav");
    queue()->start();
    pidOf("endless");
    queue()->startConversion(picked); // reserved by a worker: nothing happens
    queue()->startConversion(urgent);
    ASSERT_TRUE(runUntil([&] { return recorder->events.contains("done good.2.wav"); }));
    EXPECT_FALSE(recorder->events.contains("start good.1.wav"));
    picked->cancel();
    runToEnd();
    EXPECT_EQ(recorder->events.count("start endless.wav"), 1);
    EXPECT_EQ(recorder->events.count("done good.1.wav"), 1);
}

TEST_F(KVConversionQueueTest, TellsTheProgressOfAllRows) {
    EXPECT_EQ(KVConversionQueue::totalProgress(), 0);
    add("good.wav")->state = KVConversionState::finished;
    const auto half = add("good2.wav");
    half->progressOfCurrentTask = 0.5;
    EXPECT_DOUBLE_EQ(KVConversionQueue::totalProgress(), 0.75);
    half->state = KVConversionState::finished; // a failed one counts as done
    EXPECT_DOUBLE_EQ(KVConversionQueue::totalProgress(), 1);
}

TEST_F(KVConversionQueueTest, KnowsWhichFilesItHolds) {
    const auto row = add("a.wav");
    EXPECT_TRUE(KVConversionQueue::anyQueueContainsMedia(url("a.wav")));
    EXPECT_FALSE(KVConversionQueue::anyQueueContainsMedia(url("b.wav")));
    row->setMediaFiles({file("b.wav")});
    for (const auto &delegate : row->delegates().allValues())
        delegate->conversionDidUpdateFiles(row);
    EXPECT_FALSE(KVConversionQueue::anyQueueContainsMedia(url("a.wav")));
    EXPECT_TRUE(KVConversionQueue::anyQueueContainsMedia(url("b.wav")));
    queue()->cancelConversion(row);
    EXPECT_FALSE(KVConversionQueue::anyQueueContainsMedia(url("b.wav")));
}

/// Starts the queue and a row of it while it is being asked where to.
class ImpatientQuestions : public KVScriptedQuestions {
  public:
    std::function<void()> meanwhile;
    QList<QUrl> runOpenPanel(const KVOpenPanel &panel) override {
        meanwhile();
        KVMainThread::runUntil([] { return false; }, 0.2);
        return KVScriptedQuestions::runOpenPanel(panel);
    }
};

TEST_F(KVConversionQueueTest, AsksOnceWhereToAndWaitsForTheAnswer) {
    KVPreferences::shared().setBoolean(false, KVPreferenceKeys::SaveToSourceFolder);
    const auto questions = std::make_shared<ImpatientQuestions>();
    KVUserQuestion::setResponder(questions);
    QDir(path()).mkdir("chosen");
    const auto row = add("good.1.wav");
    const auto urgent = add("good.2.wav");
    queue()->setOutputDirectoryURL({});

    questions->meanwhile = [&] { queue()->start(); };
    queue()->start(); // refused
    EXPECT_EQ(questions->openPanels.size(), 1u);
    EXPECT_EQ(questions->openPanels[0].message, "Please, select a destination for converting Audios:");
    runUntil([] { return false; }, 0.1);
    EXPECT_EQ(queue()->numberOfFilesWaitingToBeConverted(), 2);

    questions->meanwhile = [&] {
        queue()->pause();
        queue()->startConversion(urgent);
    };
    questions->openPanelResponses.push_back({url("chosen")});
    runToEnd();
    ASSERT_TRUE(runUntil([&] { return recorder->events.count("done good.2.wav") == 1; }));
    EXPECT_EQ(questions->openPanels.size(), 2u);
    EXPECT_EQ(urgent->outputURL(), url("chosen/good.2.mp3"));
    EXPECT_EQ(row->outputURL(), url("chosen/good.1.mp3"));
    KVUserQuestion::setResponder(nullptr);
    KVPreferences::shared().setValue({}, KVPreferenceKeys::SaveToSourceFolder);
}

TEST_F(KVConversionQueueTest, LeavesNoThreadAndNoDescriptorBehindARun) {
    const auto count = [](const char *folder) {
        return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
    };
    KVTempDirectoryPath();
    add("good.wav");
    add("failing.wav");
    runToEnd(); // whatever is made once is there now
    ASSERT_TRUE(waitFor([&] { return !queue()->isWorking(); }));
    const auto threads = count("/proc/self/task"), descriptors = count("/proc/self/fd");
    for (int run = 0; run < 5; ++run) {
        for (int row = 0; row < 8; ++row)
            add(QString(row % 2 ? "good.%1.%2.wav" : "failing.%1.%2.wav").arg(run).arg(row));
        runToEnd();
    }
    EXPECT_TRUE(waitFor([&] { return count("/proc/self/task") == threads; }));
    EXPECT_EQ(count("/proc/self/fd"), descriptors);
    EXPECT_EQ(errors.size(), 21u);
}

TEST_F(KVConversionQueueTest, QuitsInTheMiddleOfWorkAndLeavesNothingBehind) {
    add("stone-deaf.wav");
    const auto waiting = add("good.wav");
    const auto apart = add("deaf.wav");
    runOneByOne();
    queue()->start();
    queue()->startConversion(apart);
    const int children[] = {pidOf("stone-deaf"), pidOf("deaf")};
    queue()->pause();
    EXPECT_TRUE(KVConversionQueue::cancelAllAndWait(2));
    for (const int child : children)
        EXPECT_FALSE(isAlive(child));
    EXPECT_FALSE(queue()->isWorking());
    EXPECT_EQ(waiting->state, KVConversionState::waitingToStart);
    EXPECT_EQ(QDir(path()).entryList({"*.mp3"}), QStringList());
}

TEST_F(KVConversionQueueTest, LeavesNoChildWhenTheProcessExitsInTheMiddleOfWork) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // The second process runs this test from its beginning; it inherits where to leave its note.
    if (!qEnvironmentVariableIsSet("KV_EXIT_NOTE")) qputenv("KV_EXIT_NOTE", path("note").toUtf8());
    const QString note = qEnvironmentVariable("KV_EXIT_NOTE");
    EXPECT_EXIT(
        {
            add("endless.wav");
            queue()->start();
            QFile file(note);
            if (file.open(QFile::WriteOnly)) file.write(QByteArray::number(pidOf("endless")));
            file.close();
            std::exit(7);
        },
        testing::ExitedWithCode(7), "");
    const int child = read(note).toInt();
    qunsetenv("KV_EXIT_NOTE");
    ASSERT_GT(child, 0);
    EXPECT_TRUE(waitFor([&] { return !isAlive(child); }));
}

} // namespace
