#include "tasks/KVHardwareAcceleration.h"

#include "kvcore/KVLog.h"
#include "support/KVStandInTool.h"
#include "support/KVTestCase.h"

#include <chrono>
#include <mutex>
#include <thread>

namespace {

class KVHardwareAccelerationTest : public KVTestCase {
  protected:
    /// Starts the test and answers what it found.
    static bool result() {
        KVHardwareAcceleration::shared().waitForResult();
        return KVHardwareAcceleration::shared().isHardwareAccelerationAvailable();
    }
};

TEST_F(KVHardwareAccelerationTest, ThisSystemsToolHasNoSuchEncoder) {
    qputenv("TMPDIR", path().toUtf8());
    std::mutex mutex;
    QString log;
    KVSetLogSink([&](const QString &line) {
        const std::scoped_lock lock(mutex);
        log += line + "\n";
    });
    EXPECT_FALSE(result());
    KVSetLogSink({});
    const std::scoped_lock lock(mutex);
    EXPECT_TRUE(log.contains("Unknown encoder 'h264_videotoolbox'")) << log.toStdString();
    EXPECT_EQ(QDir(path()).entryList(QDir::Files), QStringList()) << "no output is left behind";
}

TEST_F(KVHardwareAccelerationTest, VerdictIsTheExitStatusOfTheOneRunAndCountsAsYesUntilThen) {
    const KVStandInTool tool(path("tool"), "[ \"$2\" = -h ] && exit 0\n"
                                           "printf '%s ' \"$@\" >> \"$here/list\"\n"
                                           "until [ -e \"$here/go\" ]; do sleep 0.02; done; exit 0");
    EXPECT_TRUE(KVHardwareAcceleration::shared().isHardwareAccelerationAvailable());
    write("tool/go", "");
    EXPECT_TRUE(result());
    EXPECT_TRUE(result());
    const QString list = QString::fromUtf8(read(tool.path("list")));
    const QString fixed =
        " -enable_drefs 1 -s 40x40 -aspect 1:1 -threads 16 -c:v h264_videotoolbox "
        "-disposition:v:0 default -b:v 6900k -maxrate 8M -allow_sw 1 -copyts -start_at_zero -movflags "
        "+faststart -qmin 5 -qmax 31 -flags +loop "
        "-g 250 -i_qfactor 0.71 -refs 1 -trellis 2 -coder 0 -bf 0 -bt 256k -keyint_min 250 "
        "-sc_threshold 40 -me_method umh -me_range 51 -level 51 -profile:v baseline -an -sn "
        "-f mp4 -max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 ";
    EXPECT_TRUE(list.startsWith("-y -i " + tool.path("hw_test.mov") + fixed)) << list.toStdString();
    EXPECT_EQ(list.count("-y "), 1) << "one run";
}

TEST_F(KVHardwareAccelerationTest, NoToolMeansNoHardwareEncoder) {
    const KVStandInTool tool(path("tool"), "");
    QFile::remove(tool.path());
    ASSERT_TRUE(QFile::link(path("no such tool"), tool.path()));
    EXPECT_FALSE(result());
}

TEST_F(KVHardwareAccelerationTest, ResultThatWasPutInPlaceNeedsNoRun) {
    const KVStandInTool tool(path("tool"), "touch \"$here/ran\"");
    KVHardwareAcceleration::setResult(true);
    EXPECT_TRUE(result());
    KVHardwareAcceleration::setResult(false);
    EXPECT_FALSE(result());
    EXPECT_FALSE(QFile::exists(tool.path("ran")));
}

TEST_F(KVHardwareAccelerationTest, EndOfTheProgramDoesNotWaitForATestThatHangs) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto leaveInTheMiddle = [this] {
        static KVStandInTool tool(path("tool"),
                                  "[ \"$2\" = -h ] && exit 0\necho $$ > \"$here/pid\"; exec sleep 600");
        KVHardwareAcceleration::shared();
        while (!QFile::exists(tool.path("pid")))
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        std::exit(0);
    };
    EXPECT_EXIT(leaveInTheMiddle(), testing::ExitedWithCode(0), "");
}

} // namespace
