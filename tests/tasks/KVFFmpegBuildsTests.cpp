#include "platform/KVResources.h"
#include "support/KVStandInTool.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "tasks/KVFFmpegDialect.h"
#include "tasks/KVFFmpegTask.h"

#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

#include <iostream>
#include <map>

namespace {

/// A list as a preset writes it: see the file.
struct CatalogueRow {
    QString what;
    QStringList needs; ///< "muxer ogg", "filter crop"
    QString arguments;
};

std::vector<CatalogueRow> catalogue() {
    QFile file(KV_TEST_DIRECTORY "/tasks/catalogue_options.txt");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<CatalogueRow> rows;
    for (const QString &line : QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts)) {
        if (line.startsWith('#')) continue;
        CatalogueRow row{line.section("; ", 0, 0), line.section("; ", 1, 1).split(", ", Qt::SkipEmptyParts),
                         line.section("; ", 2)};
        static const QRegularExpression encoder(" -(?:c:[vas](?::\\d)?|acodec) (?!copy )(\\S+)");
        for (auto match = encoder.globalMatch(row.arguments); match.hasNext();)
            row.needs.append("encoder " + match.next().captured(1));
        rows.push_back(row);
    }
    return rows;
}

/// One real build of the tool stands in the place of the system's.
class KVFFmpegBuildsTest : public KVTestCase, public testing::WithParamInterface<const char *> {
  protected:
    static QString version() { return GetParam(); }

    void SetUp() override {
        const QString packages = KV_BUILD_DIRECTORY "/../ffmpeg-builds/node_modules/";
        const QString libraries = packages + "@remotion/compositor-linux-x64-gnu"; // of 7.1
        const std::map<QString, QString> programs{
            {"4.1", packages + "@ffmpeg-installer/linux-x64/ffmpeg"},
            {"system", QFileInfo(KVResources::directory() + "/ffmpeg").canonicalFilePath()},
            {"7.1", libraries + "/ffmpeg"}};
        const QString program = programs.at(version());
        if (!QFileInfo(program).isExecutable())
            GTEST_SKIP() << "no tool " << GetParam() << ": tests/tools/fetch_ffmpeg_builds.sh gets it";
        const QString script = QString("LD_LIBRARY_PATH='%1' exec '%2' \"$@\"").arg(libraries, program);
        _makeMedia();
        _tool = std::make_unique<KVStandInTool>(
            path("tool"),
            version() == "7.1" ? script.toUtf8() : QString("exec '%1' \"$@\"").arg(program).toUtf8());
    }

    struct Run {
        int status;
        QByteArray output;
    };
    static Run run(const QStringList &arguments, bool usesStandardOutput = false) {
        const auto task = KVFFmpegTask::create(arguments);
        if (!task) return {-1, task.error().reason.toUtf8()};
        (*task)->setUsesStandardOutput(usesStandardOutput);
        const QByteArray output = (*task)->launchAndGetAllOutputData();
        return {(*task)->process().terminationStatus(), output};
    }

    /// `row`'s list on real files, the output in a folder of its own.
    QStringList arguments(const CatalogueRow &row) const {
        QDir(path("out")).removeRecursively();
        QDir(path()).mkdir("out");
        QString text = row.arguments;
        for (const char *input : {"video.mov", "large.mov", "subtitled.mkv", "sound.wav", "subtitles.srt"})
            text.replace("{" + QString(input).section('.', 0, 0) + "}", path(input));
        QStringList list = text.replace("{out}", path("out/result")).split(' ');
        return list.replaceInStrings("~", " ");
    }

    /// Whether "-encoders" (and so on) names it: "encoder libx264".
    bool has(const QString &need) {
        const QString kind = need.section(' ', 0, 0);
        if (!_listed.contains(kind)) {
            static const QRegularExpression line("^ +[A-Z.|]+ +([\\w,]+) ",
                                                 QRegularExpression::MultilineOption);
            const QString text = QString::fromUtf8(run({"-hide_banner", "-" + kind + "s"}, true).output);
            for (auto match = line.globalMatch(text); match.hasNext();)
                _listed[kind] += match.next().captured(1).split(',');
        }
        return _listed[kind].contains(need.section(' ', 1));
    }

  private:
    void _makeMedia() const {
        KVTestMedia::clip(path("video.mov"), 0.4);
        KVTestMedia::clip(path("large.mov"), 0.4, "200x150");
        KVTestMedia::tone(path("sound.wav"), 0.3);
        write("subtitles.srt", "1\n00:00:00,000 --> 00:00:00,300\nh\xC3\xA9llo\n");
        KVTestMedia::make({"-i", path("video.mov"), "-i", path("subtitles.srt"), "-c", "copy",
                           "-metadata:s:s", "language=eng", path("subtitled.mkv")});
    }

    std::unique_ptr<KVStandInTool> _tool;
    QHash<QString, QStringList> _listed;
};

TEST_P(KVFFmpegBuildsTest, TakesEveryListOfTheCatalogue) {
    int runs = 0;
    for (const CatalogueRow &row : catalogue()) {
        QStringList lacking = row.needs;
        lacking.removeIf([this](const QString &need) { return has(need); });
        if (!lacking.isEmpty()) {
            std::cout << "[ NOT HERE ] " << row.what.toStdString() << ": " << lacking.join(", ").toStdString()
                      << '\n';
            EXPECT_EQ(version(), "7.1") << "the other builds have everything";
            continue;
        }
        const QStringList list = arguments(row);
        const Run result = run(list);
        EXPECT_EQ(result.status, 0) << row.what.toStdString() << '\n'
                                    << result.output.right(1500).toStdString();
        EXPECT_GT(QFileInfo(QString(list.last()).replace("%03d", "000")).size(), 0) << row.what.toStdString();
        runs++;
    }
    EXPECT_GE(runs, 15);
}

TEST_P(KVFFmpegBuildsTest, RefusesOurListAsItStands) {
    // What the dialect leaves out or says otherwise is really refused: else it would have to stay.
    const QStringList input{"-y", "-i", path("video.mov"), "-c:v", "libx264"};
    const QStringList added{"-disposition:v:0", "default"};
    const QStringList output{"-frames:v", "1", "-an", path("out.mp4")};
    const std::vector<std::pair<QStringList, QStringList>> rows{
        {{"-allow_sw", "1"}, {}},
        {{"-aic", "2"}, {}},
        {{"-flags", "+4mv"}, {"-flags", "+mv4"}},
        {{"-me_method", "epzs"}, {"-me_method", "dia"}}};
    const auto asItStands = [&](const QStringList &list) {
        KVProcess process;
        process.setLaunchPath(path("tool/ffmpeg"));
        process.setArguments(list);
        process.setStandardError(KVProcess::Stream::nullDevice);
        EXPECT_TRUE(process.launch());
        process.waitUntilExit();
        return process.terminationStatus();
    };
    const auto &capabilities = KVFFmpegCapabilities::of(path("tool/ffmpeg"));
    for (const auto &[option, said] : rows) {
        const QStringList list = input + option + output;
        EXPECT_EQ(KVFFmpegDialect::argumentsForTool(list, capabilities), input + added + said + output);
        EXPECT_NE(asItStands(list), 0) << option.join(' ').toStdString();
        EXPECT_EQ(run(list).status, 0) << option.join(' ').toStdString();
    }
}

TEST_P(KVFFmpegBuildsTest, ProbeTextShowsATurnedPictureAndASubtitleAsTheParsersKnowThem) {
    KVTestMedia::make({"-i", path("video.mov"), "-i", path("subtitles.srt"), "-c", "copy", "-c:s", "mov_text",
                       "-metadata:s:s", "language=eng", "-metadata:s:v", "rotate=90", path("turned.mp4")});
    const auto probe = [&](const QString &name) {
        return KVFFmpegDialect::probeTextFromTool(QString::fromUtf8(run({"-i", path(name)}).output));
    };
    const QString turned = probe("turned.mp4");
    EXPECT_TRUE(
        turned.contains(QRegularExpression("^\\s*rotate\\s*:\\s*-?90$", QRegularExpression::MultilineOption)))
        << turned.toStdString();
    EXPECT_TRUE(turned.contains("Stream #0:2(eng): Subtitle: mov_text")) << turned.toStdString();
    EXPECT_FALSE(probe("video.mov").contains("rotate"));
}

INSTANTIATE_TEST_SUITE_P(Versions, KVFFmpegBuildsTest, testing::Values("4.1", "system", "7.1"),
                         [](const auto &version) {
                             return QString(version.param).replace('.', '_').toStdString();
                         });

} // namespace
