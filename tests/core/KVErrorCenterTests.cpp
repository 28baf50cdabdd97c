#include "core/KVErrorCenter.h"
#include "core/KVQueueNotifications.h"
#include "platform/KVScriptedQuestions.h"
#include "presets/audio/KVAudioPresets.h"
#include "queues/KVConversionQueue.h"
#include "support/KVTestCase.h"
#include "video_info/media_file/KVAudioFile.h"

namespace {

class KVErrorCenterTest : public KVTestCase {
  protected:
    void SetUp() override {
        KVUserQuestion::setResponder(questions);
        KVErrorCenter::shared().setReporter([this](const QString &report) { reports += report; });
    }
    void TearDown() override {
        KVErrorCenter::shared().setReporter({});
        KVUserQuestion::setResponder(nullptr);
    }

    KVConversionError error(const QString &output, int status = 1) const {
        const auto preset = std::make_shared<KVMP3Preset>();
        preset->name = "Mine";
        return {.mediaFiles = {std::make_shared<KVAudioFile>(url("a.wav"))},
                .targetPreset = preset,
                .taskArguments = {"-y", "-i", "a b.wav"},
                .taskOutput = output,
                .terminationStatus = status};
    }

    /// Records the failures and ends a queue.
    void endWith(const QStringList &outputs) const {
        for (const auto &output : outputs)
            KVErrorCenter::shared().addError(error(output));
        KVNotificationCenter::defaultCenter().post(ConversionQueueDidFinish,
                                                   KVConversionQueue::queue(KVMediaFileType::audio));
        runUntil([] { return false; }, 0.02);
    }

    std::shared_ptr<KVScriptedQuestions> questions = std::make_shared<KVScriptedQuestions>();
    QStringList reports;
};

TEST_F(KVErrorCenterTest, DecidesByWhatTheWholeReportContains) {
    struct Row {
        QStringList outputs;
        const char *alert; // the beginning of it; none goes to the reporter
    };
    const std::vector<Row> rows{
        {{"av_interleaved_write_frame(): No space left on device"}, "There is no more space left on your"},
        {{"/a.wav: No such file or directory"}, "The file to be converted cannot be found."},
        {{"x file not found"}, "The file to be converted cannot be found."},
        {{"Operation not permitted"}, "The file to be converted cannot be found."},
        {{"boom", "file not found", "No space left on device"}, "There is no more space left on your"},
        {{"no space left on device"}, nullptr},
        {{"No output URL is set."}, nullptr}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.outputs.first().toStdString());
        questions->alerts.clear();
        reports.clear();
        endWith(row.outputs);
        EXPECT_EQ(questions->alerts.size(), row.alert ? 1u : 0u);
        EXPECT_EQ(reports.size(), row.alert ? 0 : 1);
        if (!questions->alerts.empty()) {
            EXPECT_TRUE(questions->alerts[0].messageText.startsWith(row.alert));
            EXPECT_FALSE(questions->alerts[0].informativeText.isEmpty());
            EXPECT_EQ(questions->alerts[0].buttons, QStringList("OK"));
        }
    }
    questions->alerts.clear();
    reports.clear();
    endWith({}); // all of it was dealt with
    EXPECT_TRUE(questions->alerts.empty() && reports.isEmpty());
}

TEST_F(KVErrorCenterTest, ShowsEachErrorOnceThoughAnotherQueueEndsDuringTheAlert) {
    struct Questions : KVScriptedQuestions {
        std::function<void()> duringFirstAlert;
        KVAlertResponse runAlert(const KVAlert &alert) override {
            const auto response = KVScriptedQuestions::runAlert(alert);
            if (const auto block = std::exchange(duringFirstAlert, nullptr)) block();
            return response;
        }
    };
    const auto asked = std::make_shared<Questions>();
    KVUserQuestion::setResponder(asked);
    asked->duringFirstAlert = [&] {
        endWith({});             // the other queue has nothing new to show
        endWith({"second one"}); // and this is a matter for the reporter
    };
    endWith({"No space left on device"});
    EXPECT_EQ(asked->alerts.size(), 1u);
    ASSERT_EQ(reports.size(), 1);
    EXPECT_TRUE(reports[0].endsWith("Task output: second one"));
    endWith({});
    EXPECT_EQ(asked->alerts.size() + std::size_t(reports.size()), 2u);
}

TEST_F(KVErrorCenterTest, JoinsTheFailuresOfARun) {
    endWith({"first", "second"});
    ASSERT_EQ(reports.size(), 1);
    const auto parts = reports[0].split("\n==========================\n");
    ASSERT_EQ(parts.size(), 2);
    const auto lines = parts[1].split('\n');
    EXPECT_TRUE(parts[0].startsWith("Input file type: ["));
    EXPECT_TRUE(lines.contains("Target preset: Mine (Mine (Kalvora.KVMP3Preset))"));
    EXPECT_TRUE(parts[0].contains("\nPreset settings: [\"KVAudioTrackQuality\": 0, "));
    EXPECT_TRUE(lines.contains("Arguments: [\"-y\", \"-i\", \"a b.wav\"]"));
    EXPECT_TRUE(lines.contains("Termination status: 1"));
    EXPECT_EQ(lines.last(), "Task output: second");
}

TEST_F(KVErrorCenterTest, CutsOnlyLongOutputAndKeepsBothEnds) {
    const QString longest = "<" + QString(19998, 'x') + ">";
    EXPECT_TRUE(error(longest).description().endsWith(": " + longest));
    const QString cut = error("<" + QString(19999, 'x') + ">").description().section("Task output: ", 1);
    EXPECT_EQ(cut.size(), 20000);
    EXPECT_TRUE(cut.startsWith("<x") && cut.endsWith("x>"));
}

} // namespace
