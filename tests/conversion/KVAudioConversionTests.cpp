#include "conversion/conversions/KVAudioConversion.h"
#include "core/KVHistoryCenter.h"
#include "support/KVEngineTestCase.h"
#include "support/KVTestMedia.h"
#include "util/KVPreferenceKeys.h"

#include <QDateTime>
#include <QFileInfo>

#include <cmath>
#include <csignal>

namespace {

class KVAudioConversionTest : public KVEngineTestCase {
  protected:
    const KVConversionError *errorOf(const QString &name) const {
        for (const auto &error : errors)
            if (error.mediaFiles.first()->url().fileName() == name) return &error;
        return nullptr;
    }
};

TEST_F(KVAudioConversionTest, EndsOnceWhateverTheToolDoesAndTheQueueGoesOn) {
    struct Row {
        QString name;
        int status;
        QString output; // of the failure
    };
    const QList<Row> rows{
        {"good.wav", 0, {}},   {"failing.wav", 3, "boom: a bad thing"}, {"crashing.wav", 137, ""},
        {"silent.wav", 0, {}}, {"chatty.wav", 1, "bitrate=1.0kbits/s"}, {"good2.wav", 0, {}}};
    for (const Row &row : rows)
        add(row.name);
    const auto before = KVHistoryCenter::shared().historyItems().size();
    runToEnd();

    for (const Row &row : rows) {
        SCOPED_TRACE(row.name.toStdString());
        const bool isGood = row.status == 0;
        EXPECT_EQ(recorder->events.count("start " + row.name), 1);
        EXPECT_EQ(recorder->events.count("done " + row.name), isGood ? 1 : 0);
        EXPECT_EQ(recorder->events.count("fail " + row.name), isGood ? 0 : 1);
        const QString output = path(row.name.chopped(3) + "mp3");
        EXPECT_EQ(QFile::exists(output), isGood);
        if (isGood) {
            EXPECT_EQ(read(output), "whole");
            EXPECT_EQ(errorOf(row.name), nullptr);
        } else {
            ASSERT_NE(errorOf(row.name), nullptr);
            EXPECT_EQ(errorOf(row.name)->terminationStatus, row.status);
            EXPECT_TRUE(errorOf(row.name)->taskOutput.contains(row.output));
            EXPECT_EQ(errorOf(row.name)->taskArguments.last(), output);
        }
    }
    EXPECT_EQ(recorder->events.size(), 2 * rows.size() + 1);
    EXPECT_EQ(recorder->events.last(), "all");
    EXPECT_EQ(KVHistoryCenter::shared().historyItems().size(), before + 3);
    EXPECT_GE(errorOf("chatty.wav")->taskOutput.size(), 5000000);
    EXPECT_EQ(KVConversionQueue::totalProgress(), 1);
}

TEST_F(KVAudioConversionTest, NamesTheToolThatIsMissingAndHangsNowhere) {
    QFile::remove(path("resources/ffmpeg"));
    QFile::link(path("nowhere"), path("resources/ffmpeg"));
    const auto conversion = add("good.wav");
    runToEnd();
    EXPECT_EQ(conversion->estimatedTimeString(), "Error converting.");
    EXPECT_EQ(conversion->statusString(), "");
    EXPECT_EQ(conversion->progressOfCurrentTask, 1);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].terminationStatus, 127);
    EXPECT_TRUE(errors[0].taskOutput.contains("ffmpeg"));
    EXPECT_FALSE(QFile::exists(path("good.mp3")));
}

TEST_F(KVAudioConversionTest, KeepsOutputWithBytesThatAreNotText) {
    add("garbled.wav");
    runToEnd();
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].taskOutput, QString::fromUtf8("good\nbad \uFFFD\uFFFDgr\nün\n"));
}

TEST_F(KVAudioConversionTest, SuspendsResumesAndCancelsTheChild) {
    const auto conversion = add("endless.wav");
    EXPECT_FALSE(conversion->pause()); // no child yet
    queue()->start();
    const int child = pidOf("endless");
    queue()->pause();
    EXPECT_EQ(conversion->state, KVConversionState::paused);
    EXPECT_TRUE(conversion->pause());
    EXPECT_TRUE(waitFor([&] { return processState(child) == 'T'; }));
    queue()->start(); // resumes, as the queue is running
    EXPECT_EQ(conversion->state, KVConversionState::executing);
    EXPECT_TRUE(waitFor([&] { return processState(child) != 'T'; }));

    queue()->pause();
    conversion->cancel(); // also reaches a suspended child
    EXPECT_FALSE(QFile::exists(path("endless.mp3")));
    runToEnd();
    EXPECT_FALSE(isAlive(child));
    EXPECT_EQ(recorder->events, (QStringList{"start endless.wav", "fail endless.wav", "all"}));
    EXPECT_EQ(errors.size(), 0u);
    EXPECT_FALSE(QFile::exists(path("endless.mp3")));
}

TEST_F(KVAudioConversionTest, LeavesAFileThatAnotherProgramPutInThePlaceOfTheOutput) {
    for (const bool isCancelled : {true, false}) {
        const QString name = isCancelled ? "endless.cancelled" : "endless.failing";
        const auto conversion = add(name + ".wav");
        queue()->start();
        const int child = pidOf("endless");
        QFile::remove(path("runs"));
        ASSERT_TRUE(waitFor([&] { return QFileInfo(path(name + ".mp3")).size() > 0; }));
        QFile::remove(path(name + ".mp3"));
        write(name + ".mp3", "another program's");
        if (isCancelled)
            conversion->cancel();
        else
            ::kill(child, SIGKILL);
        runToEnd();
        EXPECT_TRUE(conversion->hasFailed());
        EXPECT_EQ(read(path(name + ".mp3")), "another program's");
    }
}

TEST_F(KVAudioConversionTest, CallsNoFileOfAnotherProgramItsResult) {
    const auto removed = add("silent.removed.wav");
    const auto replaced = add("silent.replaced.wav");
    writeScript("resources/ffmpeg", R"(
case "$*" in *"-h full"*) exit 0;; esac
for output; do :; done
printf whole >"$output"
rm "$output"
case "$output" in *replaced*) printf "another program's" >"$output";; esac
exit 0
)");
    const auto before = KVHistoryCenter::shared().historyItems().size();
    runToEnd();
    for (const auto &conversion : {removed, replaced}) {
        EXPECT_FALSE(conversion->hasSucceeded());
        ASSERT_TRUE(conversion->failureCause());
        EXPECT_TRUE(conversion->failureCause()->text.startsWith("The result was removed or replaced"));
    }
    EXPECT_EQ(KVHistoryCenter::shared().historyItems().size(), before);
    EXPECT_EQ(read(path("silent.replaced.mp3")), "another program's");
}

TEST_F(KVAudioConversionTest, GivesNoResultTheNameOfAMissingSource) {
    runOneByOne();
    const auto missing = add("endless.mp3");
    const auto sameName = add("good.later.wav");
    const auto later = add("good.later.mp3"); // waits meanwhile
    for (const char *name : {"endless.mp3", "good.later.mp3"})
        QFile::remove(path(name));
    queue()->start();
    const int child = pidOf("endless");
    EXPECT_NE(missing->outputURL(), missing->mediaFiles().first()->url());
    write("endless.mp3", "put back");
    ::kill(child, SIGKILL);
    ASSERT_TRUE(waitFor([&] { return sameName->isFinished(); }));
    runToEnd();
    EXPECT_TRUE(missing->hasFailed());
    EXPECT_EQ(read(path("endless.mp3")), "put back");
    EXPECT_TRUE(sameName->hasSucceeded());
    EXPECT_NE(sameName->outputURL(), later->mediaFiles().first()->url());

    const auto removed = add("good.removed.mp3");
    QFile::remove(path("good.removed.mp3"));
    queue()->cancelConversion(removed);
    const auto free = add("good.removed.wav");
    runToEnd();
    EXPECT_EQ(free->outputURL(), url("good.removed.mp3")) << "a row that is gone holds no name";
}

TEST_F(KVAudioConversionTest, SavesTheHistoryBeforeItReportsTheEnd) {
    const auto conversion = add("good.wav");
    QVariantList stored;
    const auto finished = KVNotificationCenter::defaultCenter().addObserver<KVConversion>(
        ConversionDidFinish, [&](const auto &) {
            stored = KVPreferences::shared().value(KVPreferenceKeys::HistoryCenterItems).toList();
        });
    runToEnd();
    ASSERT_EQ(stored.size(), 1);
    EXPECT_EQ(KVHistoryItem::fromDictionary(stored.first().toMap())->url, conversion->outputURL());
}

TEST_F(KVAudioConversionTest, EndsChildrenThatDoNotListen) {
    for (const QString part : {"deaf", "stone-deaf"}) {
        const auto conversion = add(part + ".wav");
        queue()->start();
        const int child = pidOf(part);
        conversion->cancel();
        runToEnd();
        EXPECT_FALSE(isAlive(child)) << part.toStdString();
        EXPECT_FALSE(QFile::exists(path(part + ".mp3"))) << part.toStdString();
        EXPECT_EQ(recorder->events.count("fail " + part + ".wav"), 1);
    }
    EXPECT_EQ(errors.size(), 0u);
}

TEST_F(KVAudioConversionTest, RunsNoTaskWhenCancelledBeforeTheStart) {
    const auto conversion = add("good.wav");
    conversion->cancel();
    QStringList notifications;
    auto &center = KVNotificationCenter::defaultCenter();
    const auto started = center.addObserver<KVConversion>(
        ConversionDidStart, [&](const auto &) { notifications += "start"; }, conversion);
    const auto finished = center.addObserver<KVConversion>(
        ConversionDidFinish, [&](const auto &) { notifications += "finish"; }, conversion);
    runToEnd();
    EXPECT_EQ(notifications, (QStringList{"start", "finish"}));
    EXPECT_TRUE(conversion->conversionWasSuccessful);
    EXPECT_FALSE(conversion->hasSucceeded()); // and so nothing shows it as done
    EXPECT_EQ(recorder->events, (QStringList{"start good.wav", "fail good.wav", "all"}));
    EXPECT_EQ(conversion->estimatedTimeString(), "User cancelled.");
    EXPECT_EQ(conversion->statusString(), QString());
    EXPECT_FALSE(QFile::exists(path("runs")));
}

TEST_F(KVAudioConversionTest, WritesWhereAndUnderTheNameThatWasChosen) {
    const auto renamed = add("good.one.wav");
    renamed->setOutputFileName("a new. name");
    EXPECT_FALSE(renamed->outputURL().has_value());
    runToEnd();
    EXPECT_EQ(renamed->outputURL(), url("a new. name.mp3"));
    renamed->setOutputFileName("later");
    EXPECT_EQ(renamed->outputURL(), url("later")); // no extension is added

    QDir(path()).mkdir("elsewhere");
    queue()->setOutputDirectoryURL(url("elsewhere"));
    const auto moved = add("good.two.wav");
    queue()->startConversion(moved);
    ASSERT_TRUE(runUntil([&] { return moved->isFinished(); }));
    EXPECT_EQ(moved->outputURL(), url("elsewhere/good.two.mp3"));
}

TEST_F(KVAudioConversionTest, NamesTheFolderThatCannotTakeTheResult) {
    const auto conversion = add("good.wav");
    conversion->setDestinationFolder(url("gone"));
    runToEnd();
    const auto cause = conversion->failureCause();
    ASSERT_TRUE(cause);
    EXPECT_TRUE(cause->text.contains(path("gone"))) << cause->text.toStdString();
    EXPECT_EQ(cause->retry, KVFailureRetry::inAnotherFolder);
    EXPECT_FALSE(QFile::exists(path("runs")));
}

TEST_F(KVAudioConversionTest, FailsWithoutADestination) {
    KVPreferences::shared().setBoolean(false, KVPreferenceKeys::SaveToSourceFolder);
    const auto conversion = add("good.wav");
    queue()->setOutputDirectoryURL({});
    queue()->startConversion(conversion);
    ASSERT_TRUE(runUntil([&] { return conversion->isFinished(); }));
    KVPreferences::shared().setValue({}, KVPreferenceKeys::SaveToSourceFolder);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].taskOutput, "No output URL is set.");
    EXPECT_EQ(errors[0].terminationStatus, 1);
    EXPECT_FALSE(QFile::exists(path("runs")));
}

TEST_F(KVAudioConversionTest, ConvertsARealSoundAndKeepsItsDate) {
    useRealTool();
    KVPreferences::shared().setBoolean(true, KVPreferenceKeys::PreserveCreationDate);
    const auto source = KVMediaFile::mediaFile(QUrl::fromLocalFile(KVTestMedia::tone(path("tone.wav"))));
    ASSERT_TRUE(source);
    const auto date = QDateTime::fromSecsSinceEpoch(1000000000);
    QFile wave(path("tone.wav"));
    ASSERT_TRUE(wave.open(QFile::Append) && wave.setFileTime(date, QFile::FileModificationTime));
    wave.close();
    const auto conversion = queue()->createConversion(*source, nullptr, true);
    runToEnd();
    KVPreferences::shared().setValue({}, KVPreferenceKeys::PreserveCreationDate);

    ASSERT_TRUE(conversion->conversionWasSuccessful);
    EXPECT_EQ(conversion->estimatedTimeString(), "Done!");
    EXPECT_EQ(QFileInfo(path("tone.mp3")).lastModified(), date);
    EXPECT_EQ(KVHistoryCenter::shared().historyItems().last().url, url("tone.mp3"));
    const auto result = KVMediaFile::mediaFile(url("tone.mp3"));
    ASSERT_TRUE(result);
    EXPECT_NEAR(std::dynamic_pointer_cast<KVAudioFile>(*result)->seconds, 1, 0.2);
}

class LineReader : public KVAudioConversion {
  public:
    using KVAudioConversion::_handleTaskOutputForMediaFiles;
    using KVAudioConversion::KVAudioConversion;
};

TEST_F(KVAudioConversionTest, ReadsThePositionFromStatusLines) {
    struct Row {
        const char *line;
        std::optional<double> position;
    };
    const std::vector<Row> rows{
        {"frame=  100 fps= 25 q=28.0 size=    1024kB time=00:00:04.00 bitrate=2097.2kbits/s speed=1x\r", 4},
        {"size=N/A time=00:01:00.50 bitrate=N/A", 60.5},
        {"size= 1kB time=01:00:01.00 x\rsize= 2kB time=02:00:00.00 x", 3601}, // one chunk is one line
        {"size= 1kB time=-00:01:01.00 x", 61},
        {"frame=    1 fps=0.0 q=0.0 size=       0kB time=N/A", {}},
        {"frame=    1 fps=0.0", {}},
        {"  Duration: 00:00:10.00 time=00:00:04.00", {}},
        {"video:0kB\nsize= 1kB time=00:00:04.00 x", {}}};
    for (const Row &row : rows) {
        // Two files of 10 seconds: the whole is 20.
        const auto conversion = std::make_shared<LineReader>(KVMediaFileList{});
        KVProgressAccuracy accuracy;
        conversion->_handleTaskOutputForMediaFiles({file("a.wav"), file("b.wav")}, row.line, accuracy);
        EXPECT_EQ(accuracy.numberOfSamples, row.position ? 1 : 0) << row.line;
        EXPECT_DOUBLE_EQ(conversion->progressOfCurrentTask, row.position.value_or(0) / 20) << row.line;
    }
}

TEST(KVProgressAccuracyTest, EstimatesFromTheMeanOfAllSpeeds) {
    KVProgressAccuracy accuracy{.lastSampleDate = 1000};
    accuracy.addSample(3, 1001);  // 3 seconds of media in one
    accuracy.addSample(30, 1028); // 1
    EXPECT_DOUBLE_EQ(accuracy.estimatedTime(30, 120), 45);
    accuracy.addSample(35, 1028); // the same tick counts as a second
    EXPECT_DOUBLE_EQ(accuracy.totalSecondRatio, 9);
    EXPECT_LT(accuracy.estimatedTime(130, 120), 0);
    KVProgressAccuracy standing{.lastSampleDate = 1000};
    standing.addSample(0, 1001);
    EXPECT_TRUE(std::isinf(standing.estimatedTime(0, 120)));
}

class FourTasks : public KVConversion {
  public:
    using KVConversion::KVConversion;
    int numberOfTasks() const override { return 4; }
    bool performTaskNumber(int number) override { return number < failing; }
    int failing = 4;
};

TEST_F(KVAudioConversionTest, CountsEachTaskTheSame) {
    const auto conversion = std::make_shared<FourTasks>(KVMediaFileList{});
    conversion->currentSubtask = 1;
    conversion->progressOfCurrentTask = 0.5;
    EXPECT_DOUBLE_EQ(conversion->overallValue(), 0.375);
    conversion->state = KVConversionState::finished;
    EXPECT_DOUBLE_EQ(conversion->overallValue(), 1);
}

TEST_F(KVAudioConversionTest, StopsAtTheFirstTaskThatFails) {
    const auto conversion = std::make_shared<FourTasks>(KVMediaFileList{});
    conversion->failing = 1;
    conversion->setQueue(queue());
    conversion->start();
    EXPECT_EQ(conversion->currentSubtask, 1);
    EXPECT_FALSE(conversion->conversionWasSuccessful);
    EXPECT_TRUE(conversion->isFinished());
}

} // namespace
