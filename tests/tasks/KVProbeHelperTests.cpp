#include "tasks/KVProbeHelper.h"

#include "platform/KVResources.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "tasks/KVFFmpegTask.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

namespace {

class KVProbeHelperTest : public KVTestCase {
  protected:
    void TearDown() override {
        KVResources::setHelperDirectory({});
        KVProbeHelper::setMaximumDuration(5s);
        KVProbeHelper::endIdleHelpers();
    }

    /// Uses a script in place of the helper.
    void setHelper(const QByteArray &script) {
        KVProbeHelper::endIdleHelpers();
        KVResources::setHelperDirectory(QFileInfo(writeScript("helper/kalvora-probe", script)).path());
    }

    /// Without addresses and without the lines of `ffmpeg` itself.
    static QString comparable(const QByteArray &output) {
        static const QRegularExpression address("0x[0-9a-f]+");
        QString text = QString::fromUtf8(output).replace(address, "0x");
        const QString closing = "At least one output file must be specified\n";
        if (text.endsWith(closing)) text.chop(closing.size());
        return text;
    }

    static QString textOfFFmpeg(const QString &path) {
        const auto task = KVFFmpegTask::create({"-hide_banner", "-i", path});
        return task ? comparable((*task)->launchAndGetAllOutputData()) : QString();
    }
};

} // namespace

TEST_F(KVProbeHelperTest, DescribesFilesAsFFmpegDoes) {
    const QString sound = KVTestMedia::tone(path("mono.wav"), 1, 8000, 1);
    const QString clip = KVTestMedia::clip(path("clip \u00e9.mp4"), 1);
    const QStringList files{
        sound,
        KVTestMedia::tone(path("tone.mp3")),
        KVTestMedia::tone(path("six.flac"), 1, 44100, 6),
        clip,
        write("cut.mp4", read(clip).first(500)),
        write("damaged.wav", read(sound).replace(2000, 3000, QByteArray(3000, '\xff'))),
        write("text.mp3", "no media"),
        write("empty.mkv", {}),
        path("missing.mp4"),
    };
    for (const QString &file : files) {
        const auto text = KVProbeHelper::probe(file);
        ASSERT_TRUE(text) << file.toStdString();
        EXPECT_EQ(comparable(*text), textOfFFmpeg(file));
    }
}

TEST_F(KVProbeHelperTest, ManyThreadsShareFewHelpers) {
    const QString started = path("started");
    const QString program = KVResources::helperPath("kalvora-probe");
    const QString tone = KVTestMedia::tone(path("tone.mp3"), 0.2);
    setHelper(("echo x >>'" + started + "'; exec '" + program + "'").toUtf8());
    std::atomic<int> answers = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&] {
            for (int file = 0; file < 20; ++file)
                if (const auto text = KVProbeHelper::probe(tone); text && text->contains("Audio: mp3"))
                    ++answers;
        });
    for (auto &thread : threads)
        thread.join();
    EXPECT_EQ(answers, 160);
    EXPECT_LE(read(started).count('x'), 4);
}

TEST_F(KVProbeHelperTest, AHelperThatFailsIsReplaced) {
    const QString tone = KVTestMedia::tone(path("tone.mp3"), 0.2);
    for (const char *script : {"exit 1", "kill -SEGV $$", "printf '\\377\\377\\377\\377'; sleep 50",
                               "printf '\\144\\0\\0\\0short'; exit 0"}) {
        setHelper(script);
        EXPECT_FALSE(KVProbeHelper::probe(tone)) << script;
    }
    setHelper("exec sleep 50");
    KVProbeHelper::setMaximumDuration(200ms);
    EXPECT_FALSE(KVProbeHelper::probe(tone));
    KVProbeHelper::setMaximumDuration(5s);
    KVResources::setHelperDirectory(path("nowhere"));
    EXPECT_FALSE(KVProbeHelper::probe(tone));

    KVResources::setHelperDirectory({});
    const auto text = KVProbeHelper::probe(tone);
    ASSERT_TRUE(text);
    EXPECT_TRUE(text->contains("Audio: mp3"));
}
