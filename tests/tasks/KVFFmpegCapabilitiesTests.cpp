#include "tasks/KVFFmpegCapabilities.h"

#include "support/KVStandInTool.h"
#include "support/KVTestCase.h"
#include "tasks/KVFFmpegCapabilitiesCache.h"

#include <QFileInfo>

#include <thread>
#include <vector>

namespace {

class KVFFmpegCapabilitiesTest : public KVTestCase {
  protected:
    /// A tool that counts its runs and answers with the file "help".
    static QByteArray countingScript() { return "echo \"$@\" >> \"$here/runs\"; cat \"$here/help\"\n"; }

    static QByteArray help(const QByteArray &option) {
        return "-y  overwrite\n\nAVCodecContext AVOptions:\n  -b  <int64>  E..VA... bitrate\n\nx "
               "AVOptions:\n  -" +
               option + "  <int>  E..V....\n";
    }

    static qsizetype runs(const KVStandInTool &tool) { return read(tool.path("runs")).count('\n'); }

    static void breakCache(const QByteArray &content) {
        QFile file(KVFFmpegCapabilitiesCache::filePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
};

TEST_F(KVFFmpegCapabilitiesTest, ReadsTheHelpOfEveryVersion) {
    const auto older =
        KVFFmpegCapabilities::fromHelp("Print help:\n"
                                       "-h topic            show help\n"
                                       "-ac channels        set number of audio channels\n"
                                       "-an                 disable audio\n"
                                       "    -h full -- print all options\n"
                                       "AVCodecContext AVOptions:\n"
                                       "  -flags             <flags>      ED.VAS... (default 0)\n"
                                       "     mv4                          E..V..... four vectors\n"
                                       "libx264 AVOptions:\n"
                                       "  -x264-params       <string>     E..V..... more\n");
    EXPECT_EQ(older.options, QSet<QString>({"h", "ac", "an", "flags", "x264-params", "i", "s"}));
    EXPECT_EQ(older.codecOptions, QSet<QString>{"flags"});

    const auto newer =
        KVFFmpegCapabilities::fromHelp("-ac[:<stream_spec>] <channels>  set channels\n"
                                       "-fps_mode[:<stream_spec>]  set framerate mode\n"
                                       "-an                 disable audio\n"
                                       "AVCodecContext AVOptions:\n"
                                       "  -flags             <flags>      ED.VAS..... (default 0)\n");
    EXPECT_EQ(newer.options, QSet<QString>({"ac", "fps_mode", "an", "flags", "i", "s"}));

    EXPECT_TRUE(newer.isKnown("-ac:a:0"));
    EXPECT_TRUE(newer.isKnown("-vflags"));
    EXPECT_FALSE(newer.isKnown("-vac")) << "only what every codec has takes a letter in front";
    EXPECT_FALSE(newer.isKnown("-allow_sw"));
    EXPECT_TRUE(KVFFmpegCapabilities().isKnown("-allow_sw"));
    EXPECT_EQ(KVFFmpegCapabilities::fromHelp("bash: -y: no such option"), KVFFmpegCapabilities());
}

TEST_F(KVFFmpegCapabilitiesTest, AsksAToolOnceAndAgainWhenItHasChanged) {
    const KVStandInTool tool(path("tool"), countingScript());
    write("tool/help", help("one"));
    ASSERT_TRUE(QFile::link(tool.path(), path("link")));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; i++)
        threads.emplace_back([&] { EXPECT_TRUE(KVFFmpegCapabilities::of(path("link")).isKnown("-one")); });
    for (auto &thread : threads)
        thread.join();
    EXPECT_EQ(read(tool.path("runs")), "-hide_banner -h full\n");

    KVFFmpegCapabilitiesCache nextRun;
    EXPECT_EQ(nextRun.capabilities(tool.path()), KVFFmpegCapabilities::of(tool.path()));
    EXPECT_EQ(runs(tool), 1) << "kept from one run of the program to the next";

    write("tool/help", help("two"));
    tool.replace(countingScript() + "# updated\n");
    EXPECT_TRUE(nextRun.capabilities(path("link")).isKnown("-two"));
    EXPECT_FALSE(nextRun.capabilities(path("link")).isKnown("-one"));
    EXPECT_EQ(runs(tool), 2);
}

TEST_F(KVFFmpegCapabilitiesTest, DamagedCacheIsReplaced) {
    const KVStandInTool tool(path("tool"), countingScript());
    write("tool/help", help("one"));
    KVFFmpegCapabilitiesCache().capabilities(tool.path());
    const QByteArray whole = read(KVFFmpegCapabilitiesCache::filePath());
    const std::vector<QByteArray> damages{"",
                                          "{",
                                          whole.first(whole.size() / 2),
                                          "[1, 2]",
                                          QByteArray(whole).replace("\"options\":[", "\"options\":3,\"x\":["),
                                          QByteArray(whole).replace("\"size\":\"", "\"size\":\"1")};
    qsizetype expectedRuns = 1;
    for (const QByteArray &damage : damages) {
        breakCache(damage);
        EXPECT_TRUE(KVFFmpegCapabilitiesCache().capabilities(tool.path()).isKnown("-one"));
        EXPECT_FALSE(KVFFmpegCapabilitiesCache().capabilities(tool.path()).isKnown("-two"));
        EXPECT_EQ(runs(tool), ++expectedRuns) << damage.toStdString();
        EXPECT_EQ(read(KVFFmpegCapabilitiesCache::filePath()), whole);
    }
}

TEST_F(KVFFmpegCapabilitiesTest, ToolWithoutAnAnswerKnowsEverythingAndIsNotRemembered) {
    const KVStandInTool tool(path("tool"), "echo nothing of use; exit 1");
    EXPECT_TRUE(KVFFmpegCapabilitiesCache().capabilities(tool.path()).isKnown("-anything"));
    EXPECT_TRUE(KVFFmpegCapabilitiesCache().capabilities(path("missing")).isKnown("-anything"));
    EXPECT_FALSE(QFile::exists(KVFFmpegCapabilitiesCache::filePath()));
}

TEST_F(KVFFmpegCapabilitiesTest, WorksWithoutACacheFolder) {
    const KVStandInTool tool(path("tool"), countingScript());
    write("tool/help", help("one"));
    qputenv("XDG_CACHE_HOME", write("file", "").toUtf8());
    EXPECT_FALSE(KVFFmpegCapabilitiesCache().capabilities(tool.path()).isKnown("-two"));
}

} // namespace
