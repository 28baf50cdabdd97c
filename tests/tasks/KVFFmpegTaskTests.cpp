#include "tasks/KVFFmpegTask.h"

#include "kvcore/KVLog.h"
#include "platform/KVFileManager.h"
#include "support/KVStandInTool.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "util/KVTempDirectory.h"

#include <QFileInfo>

#include <atomic>
#include <thread>
#include <vector>

#include <sys/stat.h>

namespace {

/// Answers the question for the tool's options with nothing, so that the list goes to the child as it is.
const QByteArray knowsNothing = "[ \"$2\" = -h ] && exit 0\n";

std::shared_ptr<KVFFmpegTask> makeTask(const QStringList &arguments) {
    const auto task = KVFFmpegTask::create(arguments);
    EXPECT_TRUE(task) << task.error().reason.toStdString();
    return *task;
}

class KVFFmpegTaskTest : public KVTestCase {
  protected:
    QString fontsFile() const {
        return KVFileManager::applicationSupportDirectory()->toLocalFile() +
               "/com.ostrelane.Kalvora/fonts/fonts.conf";
    }
    static void setDate(const QString &file, const QDateTime &date) {
        QFile opened(file);
        ASSERT_TRUE(opened.open(QIODevice::ReadWrite));
        ASSERT_TRUE(opened.setFileTime(date, QFileDevice::FileModificationTime));
    }
};

TEST_F(KVFFmpegTaskTest, ChildSeesTheFontsFolderAndNothingElse) {
    qputenv("KALVORA_STRANGER", "1");
    const KVStandInTool tool(path("tool"),
                             knowsNothing + "cat /proc/$$/environ >&2; printf '|%s' \"$@\" >&2");
    const auto task = makeTask({"-i", "/in put", "", "/out"});
    const QString folder = QFileInfo(fontsFile()).path();
    EXPECT_EQ(QString::fromUtf8(task->launchAndGetAllOutputData().replace('\0', ';')),
              "FONTCONFIG_PATH=" + folder + ";|-i|/in put||/out");
    EXPECT_EQ(task->arguments(), QStringList({"-i", "/in put", "", "/out"}));
    EXPECT_FALSE(task->launchError());
}

TEST_F(KVFFmpegTaskTest, WiresTheStreamThatIsAskedFor) {
    const KVStandInTool tool(path("tool"), knowsNothing + "echo out; echo err >&2; exit 3");
    const auto task = makeTask({"-i", "a"});
    task->setUsesStandardOutput(true);
    EXPECT_EQ(task->launchAndGetAllOutputData(), "out\n");
    EXPECT_EQ(task->process().terminationStatus(), 3);

    const auto silent = makeTask({"-i", "a"});
    ASSERT_NE(silent->fileHandle(), nullptr);
    silent->setIsSilenced(true);
    EXPECT_EQ(silent->fileHandle(), nullptr);
    EXPECT_EQ(silent->launchAndGetAllOutputData(), "");
    EXPECT_EQ(silent->process().terminationStatus(), 3) << "waited for";
}

TEST_F(KVFFmpegTaskTest, KeepsAllOfALongOutputUpToTheLastByteBeforeTheExit) {
    const KVStandInTool tool(
        path("tool"), knowsNothing + "i=0; while [ $i -lt 40000 ]; do echo \"line $i\" >&2; i=$((i+1)); "
                                     "done; printf last >&2; exec >&- 2>&-");
    const QByteArray output = makeTask({"-i", "a"})->launchAndGetAllOutputData();
    EXPECT_EQ(output.count('\n'), 40000);
    EXPECT_TRUE(output.endsWith("line 39999\nlast")) << output.right(40).toStdString();
}

TEST_F(KVFFmpegTaskTest, ChatterOnTheOtherStreamNeverBlocksTheChild) {
    const KVStandInTool tool(path("tool"), knowsNothing + "head -c 1000000 /dev/zero >&2; printf done");
    const auto task = makeTask({"-i", "a"});
    task->setUsesStandardOutput(true);
    EXPECT_EQ(task->launchAndGetAllOutputData(), "done");
}

TEST_F(KVFFmpegTaskTest, MissingToolNamesThePackage) {
    const KVStandInTool tool(path("tool"), "");
    QFile::remove(tool.path());
    ASSERT_TRUE(QFile::link(path("no such tool"), tool.path()));
    const auto task = makeTask({"-i", "a"});
    EXPECT_EQ(task->launchAndGetAllOutputData(), "");
    ASSERT_TRUE(task->launchError());
    EXPECT_EQ(task->launchError()->reason, "ffmpeg is not installed. Install the package \"ffmpeg\".");
    EXPECT_EQ(task->process().terminationStatus(), 127);

    tool.replace("");
    QFile::setPermissions(tool.path(), QFile::ReadOwner);
    const auto forbidden = makeTask({"-i", "a"})->launch();
    ASSERT_FALSE(forbidden);
    EXPECT_EQ(forbidden.error().code, EACCES);
    EXPECT_FALSE(forbidden.error().reason.contains("Install"));
}

TEST_F(KVFFmpegTaskTest, FontConfigurationIsCopiedWhenMissingOrOlder) {
    const KVStandInTool tool(path("tool"), "");
    const QDateTime day = QDateTime::currentDateTime().addDays(-10);
    write("tool/fonts.conf", "first");
    setDate(tool.path("fonts.conf"), day);
    makeTask({"-i", "a"});
    EXPECT_EQ(read(fontsFile()), "first");

    struct Row {
        const char *what;
        QByteArray content;
        QDateTime date;
        QByteArray expected;
    };
    for (const Row &row : std::vector<Row>{{"same date", "same", day, "first"},
                                           {"older", "older", day.addDays(-1), "first"},
                                           {"newer", "newer", day.addDays(1), "newer"}}) {
        write("tool/fonts.conf", row.content);
        setDate(tool.path("fonts.conf"), row.date);
        makeTask({"-i", "a"});
        EXPECT_EQ(read(fontsFile()), row.expected) << row.what;
    }
    QFile::remove(fontsFile());
    makeTask({"-i", "a"});
    EXPECT_EQ(read(fontsFile()), "newer") << "restored after the user deleted it";
    EXPECT_EQ(QDir(QFileInfo(fontsFile()).path()).entryList(QDir::Files),
              QStringList({"cache.conf", "fonts.conf"}));
}

TEST_F(KVFFmpegTaskTest, ManyTasksMadeAtOnceAllGetTheFontConfiguration) {
    const KVStandInTool tool(path("tool"), "");
    for (int round = 0; round < 20; round++) {
        QFile::remove(fontsFile());
        std::atomic<int> made = 0;
        std::vector<std::thread> threads;
        for (int i = 0; i < 8; i++)
            threads.emplace_back([&] { made += KVFFmpegTask::create({"-i", "a"}).has_value(); });
        for (auto &thread : threads)
            thread.join();
        ASSERT_EQ(made, 8);
        ASSERT_EQ(read(fontsFile()), read(tool.path("fonts.conf")));
    }
}

TEST_F(KVFFmpegTaskTest, FontsFolderThatCannotBeMadeIsAnError) {
    write("data/com.ostrelane.Kalvora", "a file in the way");
    qputenv("XDG_DATA_HOME", path("data").toUtf8());
    EXPECT_FALSE(KVFFmpegTask::create({"-i", "a"}));
}

class StillFrame : public KVStillFrameSource {
  public:
    StillFrame(QString path, std::optional<double> seconds)
        : _path(std::move(path))
        , _seconds(seconds) {}
    QString stillFramePath() const override { return _path; }
    std::optional<double> stillFrameVideoSeconds() const override { return _seconds; }

  private:
    QString _path;
    std::optional<double> _seconds;
};

TEST_F(KVFFmpegTaskTest, StillFrameIsTakenFromTheMiddleOrAfterAMinuteAndAHalf) {
    const KVStandInTool tool(path("tool"), knowsNothing + "echo \"$*\" > \"$here/list\"");
    const std::vector<std::pair<std::optional<double>, int>> rows{
        {0.0, 0}, {1.9, 0}, {2.0, 1}, {7.9, 3}, {89.99, 44}, {90.0, 90}, {36000.0, 90}, {std::nullopt, 0}};
    for (const auto &[seconds, offset] : rows) {
        const auto image = KVFFmpegTask::generateRandomImage(StillFrame("/a.mov", seconds));
        ASSERT_TRUE(image);
        const QString seek =
            offset > 0 ? QString("-ss %1 ").arg(offset) : QString(); // the tool's way of saying 0
        EXPECT_EQ(QString::fromUtf8(read(tool.path("list"))),
                  QString("%1-i /a.mov -frames:v 1 %2\n").arg(seek, image->toLocalFile()));
    }
}

TEST_F(KVFFmpegTaskTest, StillFrameOfARealClipIsAPicture) {
    const QString clip = KVTestMedia::clip(path("clip.mov"), 0.4);
    const auto image = KVFFmpegTask::generateRandomImage(StillFrame(clip, 0.4));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->adjusted(QUrl::RemoveFilename), QUrl::fromLocalFile(KVTempDirectoryPath() + "/"));
    EXPECT_TRUE(image->fileName().endsWith(".jpg"));
    EXPECT_TRUE(read(image->toLocalFile()).startsWith("\xFF\xD8"));
}

} // namespace
