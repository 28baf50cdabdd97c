#include "cli/KVCommandTestCase.h"
#include "support/KVTestMedia.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <csignal>

#include <sys/stat.h>
#include <unistd.h>

namespace {

class KVConvertCommandTest : public KVCommandTestCase {
  protected:
    QString tone(const QString &name, double seconds = 0.3) const {
        return KVTestMedia::tone(path(name), seconds);
    }
    void copies(const QString &source, const QStringList &targets) const {
        for (const QString &target : targets)
            ASSERT_TRUE(QFile::copy(path(source), path(target)));
    }
    Result convert(const QStringList &words) const {
        return run(QStringList{"convert", "--preset", "MP3", "--json"} + words);
    }
};

TEST_F(KVConvertCommandTest, ConvertsAFileBesideItsSource) {
    tone("song.wav", 1);
    const Result result = convert({"song.wav"});
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    ASSERT_EQ(result.array().size(), 1);
    const QJsonObject entry = result.array()[0].toObject();
    EXPECT_EQ(entry.keys(), QStringList({"cause", "error", "input", "output", "preset", "remedy", "seconds",
                                         "successful", "terminationStatus", "warnings"}));
    EXPECT_EQ(entry["input"], QJsonArray{path("song.wav")});
    EXPECT_EQ(entry["output"], path("song.mp3"));
    EXPECT_EQ(entry["preset"], "MP3");
    EXPECT_EQ(entry["successful"], true);
    EXPECT_EQ(entry["terminationStatus"], 0);
    EXPECT_GT(entry["seconds"].toDouble(), 0);
    EXPECT_TRUE(entry["error"].isNull());
    EXPECT_NEAR(secondsOf(path("song.mp3")), 1, 0.2);
    EXPECT_EQ(result.errorLines().size(), 2) << "a line at the start and one at the end";
    EXPECT_TRUE(run({"preferences", "get", "ZRHistoryCenterItems"}).output.contains("song.mp3"));

    EXPECT_EQ(convert({"song.wav"}).array()[0]["output"], path("song.MP3.00.mp3"));
}

TEST_F(KVConvertCommandTest, DoesTheOthersWhateverIsWrongWithSome) {
    const QStringList strange{"-dash.wav", "it's \"q\" %s.wav", "new\nline.wav", QString(251, u'n') + ".wav"};
    tone("good.wav");
    copies("good.wav", strange);
    write("empty.wav", "");
    write("text.mp3", "this is no sound");
    write("note.txt", "text");
    write("cover.png", "x");
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe.wav")).constData(), 0600), 0);
    // Longer than what is left of it: the tool makes what it can of the rest.
    write("cut.wav", read(path("good.wav")).first(20000));

    const Result result = convert(QStringList{"good.wav", "empty.wav", "text.mp3", "note.txt", "cover.png",
                                              "pipe.wav", "cut.wav", "gone.wav", "--"} +
                                  strange);
    EXPECT_EQ(result.status, 1);
    QMap<QString, QString> errors;
    int successes = 0;
    for (const QJsonValue entry : result.array()) {
        const QString name = QFileInfo(entry["input"][0].toString()).fileName();
        successes += entry["successful"].toBool() ? 1 : 0;
        if (entry["successful"].toBool())
            EXPECT_GT(QFileInfo(entry["output"].toString()).size(), 0) << name.toStdString();
        else
            errors.insert(name, entry["error"].toString());
    }
    EXPECT_EQ(successes, 6) << result.output.toStdString();
    EXPECT_EQ(errors, (QMap<QString, QString>{
                          {"empty.wav", "The file is empty."},
                          {"text.mp3", "Unrecognized file format."},
                          {"note.txt", "File type is blacklisted by a file extension filter."},
                          {"cover.png", "The preset \"MP3\" does not convert files of the type picture."},
                          {"pipe.wav", "This is no regular file."},
                          {"gone.wav", "No such file or folder."},
                      }));
}

TEST_F(KVConvertCommandTest, TakesFoldersAndNotWhatItWritesThere) {
    QDir().mkpath(path("in/sub"));
    tone("in/a.wav");
    copies("in/a.wav", {"in/b.wav", "in/sub/c.wav"});
    write("in/note.txt", "text");
    write("in/cover.png", "x"); // of a kind that the preset does not convert
    ASSERT_TRUE(QFile::link(path("in"), path("in/sub/again")));

    Result result = convert({"in", "in/a.wav"});
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    EXPECT_EQ(result.array().size(), 2);
    EXPECT_EQ(names("in/sub"), QStringList("c.wav"));
    QJsonArray made = result.array();

    // Outputs go where folders are still to be read.
    result = run({"convert", "--preset", "AAC", "--json", "--recursive", "--to", "in/sub", "in/a.wav", "in"});
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    EXPECT_EQ(result.array().size(), 5) << "three sounds and the two of the run before";
    for (const QJsonValue entry : result.array())
        made.append(entry);
    const QString history = run({"preferences", "get", "ZRHistoryCenterItems"}).output;
    for (const QJsonValue entry : made) // of both runs
        EXPECT_TRUE(history.contains(QFileInfo(entry["output"].toString()).fileName()));
    EXPECT_EQ(run({"preferences", "get", "ZRRecursivelyProcessAllFolders"}).status, 1) << "for one run only";
    EXPECT_EQ(run({"preferences", "get", "KVSaveToSourceFolder"}).status, 1);
}

TEST_F(KVConvertCommandTest, SaysThatAFolderHoldsNothing) {
    write("empty/note.txt", "text");
    QDir().mkpath(path("empty/sub"));
    const Result result = convert({"empty"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output.simplified(), "[ ]");
    EXPECT_TRUE(result.errors.contains("there is nothing to convert")) << result.errors.toStdString();
}

TEST_F(KVConvertCommandTest, ReadsSubtitlesBesideAVideoInTheirEncoding) {
    KVTestMedia::make({"-f", "lavfi", "-i", "color=size=64x48:duration=0.2", path("a.avi")});
    write(
        "a.srt",
        "1\n00:00:00,000 --> 00:00:01,000\n\xc4\xee\xe1\xf0\xee \xef\xee\xe6\xe0\xeb\xee\xe2\xe0\xf2\xfc.\n");
    const Result result = run({"convert", "--preset", "MKV", "a.avi"});
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains("a.avi: Subtitles: a.srt (windows-1251)\n"))
        << result.errors.toStdString();
    EXPECT_FALSE(result.errors.contains("left out"));
    KVTestMedia::make({"-i", path("a.mkv"), path("out.srt")});
    EXPECT_TRUE(read(path("out.srt")).contains(QStringLiteral("Добро пожаловать.").toUtf8()));
}

TEST_F(KVConvertCommandTest, StitchesAllIntoOne) {
    tone("a.wav", 0.5);
    tone("b.wav", 1);
    const Result result = convert({"--stitch", "a.wav", "b.wav"});
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    ASSERT_EQ(result.array().size(), 1);
    EXPECT_EQ(result.array()[0]["input"], (QJsonArray{path("a.wav"), path("b.wav")}));
    EXPECT_NEAR(secondsOf(path("a.mp3")), 1.5, 0.2);
    EXPECT_EQ(names(), QStringList({"a.mp3", "a.wav", "b.wav"}));
}

TEST_F(KVConvertCommandTest, StitchesALargeFolderBeforeWhatIsNamedBehindIt) {
    QDir().mkpath(path("album"));
    tone("album/1.wav");
    copies("album/1.wav",
           {"album/2.wav", "album/3.wav", "album/4.wav", "album/5.wav", "album/6.wav", "last.wav"});
    QJsonArray wanted;
    for (int number = 1; number <= 6; ++number)
        wanted.append(path(QStringLiteral("album/%1.wav").arg(number)));
    wanted.append(path("last.wav"));
    const Result result = convert({"--stitch", "--to", ".", "album", "last.wav"});
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    EXPECT_EQ(result.array()[0]["input"], wanted);

    const QStringList words{"arguments", "--json", "--preset", "MP3", "album", "last.wav"};
    QJsonArray inputs;
    const QJsonArray list = run(words).object()["arguments"].toArray();
    for (qsizetype i = 1; i < list.size(); ++i)
        if (list[i - 1] == "-i") inputs.append(list[i]);
    EXPECT_EQ(inputs, wanted);
}

TEST_F(KVConvertCommandTest, MakesSoundOfVideosWithTheTrackThatIsChosen) {
    KVTestMedia::make({"-f",         "lavfi", "-i",   "testsrc2=size=64x48:duration=0.4",
                       "-f",         "lavfi", "-i",   "sine=duration=0.4",
                       "-f",         "lavfi", "-i",   "sine=duration=0.4:sample_rate=32000",
                       "-map",       "0",     "-map", "1",
                       "-map",       "2",     "-c:a", "pcm_s16le",
                       path("v.mkv")});
    EXPECT_EQ(convert({"v.mkv", "--audio-track", "2"}).status, 0);
    const QJsonArray probed = run({"probe", "--json", "v.mp3"}).array();
    EXPECT_EQ(probed[0]["audioTracks"][0]["frequency"], 32000);
    const Result first = convert({"v.mkv", "--no-questions"});
    EXPECT_EQ(first.status, 0);
    EXPECT_TRUE(first.errors.contains("more than one audio track")) << first.errors.toStdString();
    EXPECT_EQ(convert({"v.mkv", "--audio-track", "0"}).array()[0]["error"], "The file has no audio track 0.");
    ASSERT_TRUE(QDir(path()).mkdir("in"));
    copies("v.mkv", {"in/1.mkv", "in/2.mkv"});
    const Result ofFolder = convert({"in", "--audio-track", "9", "--no-questions"});
    EXPECT_EQ(ofFolder.array().size(), 2);
    EXPECT_EQ(ofFolder.errors.count("has no audio track 9"), 1) << "only the first file is meant";
}

TEST_F(KVConvertCommandTest, SaysWhyAPresetRefusesAFile) {
    KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=64x48:duration=0.2", path("v.mov")});
    const QStringList words{"--preset", "Web Optimization", "--json", "v.mov"};
    const Result converted = run(QStringList{"convert"} + words);
    EXPECT_EQ(converted.status, 1);
    EXPECT_TRUE(converted.errors.contains("works only on MP4 files.")) << converted.errors.toStdString();
    const Result arguments = run(QStringList{"arguments"} + words);
    EXPECT_EQ(arguments.status, 1);
    EXPECT_EQ(arguments.object()["error"], "Couldn't create task, aborting.");
    EXPECT_EQ(names(), QStringList("v.mov"));
}

TEST_F(KVConvertCommandTest, TellsOfADestinationThatCannotTakeAnything) {
    tone("a.wav");
    copies("a.wav", {"b.wav"});
    Result result = convert({"--to", "nowhere", "a.wav", "b.wav"});
    EXPECT_EQ(result.status, 1);
    ASSERT_EQ(result.array().size(), 2);
    EXPECT_TRUE(result.array()[1]["error"].toString().contains("nowhere is missing or cannot be written to"));
    EXPECT_EQ(result.array()[1]["terminationStatus"], -1);
    KVTestMedia::clip(path("film.mkv"), 0.2);
    result = run({"convert", "--json", "--preset", "DVD", "--to", "nowhere", "film.mkv"});
    EXPECT_TRUE(result.array()[0]["cause"].toString().startsWith("The destination folder"));
    EXPECT_TRUE(result.errors.contains("  Choose another destination folder")) << result.errors.toStdString();
    ASSERT_TRUE(QFile::remove(path("film.mkv")));

    EXPECT_EQ(run({"preferences", "set", "KVSaveToSourceFolder", "false"}).status, 0);
    result = convert({"a.wav"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains("there is no destination folder")) << result.errors.toStdString();
    EXPECT_EQ(names(), QStringList({"a.wav", "b.wav"}));
    EXPECT_EQ(run({"preferences", "set", "ZRFixedDestinationBookmark", "."}).status, 0);
    EXPECT_EQ(convert({"a.wav"}).array()[0]["output"], path("a.mp3"));
}

TEST_F(KVConvertCommandTest, LeavesNothingWhereItIsInterrupted) {
    tone("a.wav", 300);
    copies("a.wav", {"b.wav", "c.wav"});
    for (const int signal : {SIGINT, SIGTERM}) {
        const auto process =
            start({"convert", "--preset", "MP3", "--json", "a.wav", "b.wav", "c.wav"}, "started");
        QElapsedTimer time;
        time.start();
        ASSERT_EQ(::kill(static_cast<pid_t>(process->processId()), signal), 0);
        const Result result = finish(*process);
        EXPECT_LT(time.elapsed(), 10000) << "it must not wait for the conversions";
        EXPECT_EQ(result.status, 128 + signal);
        EXPECT_EQ(names(), QStringList({"a.wav", "b.wav", "c.wav"}));
        ASSERT_FALSE(result.array().isEmpty());
        for (const QJsonValue entry : result.array()) {
            EXPECT_EQ(entry["successful"], false);
            EXPECT_TRUE(entry["output"].isNull());
            EXPECT_EQ(entry["error"], "Cancelled.");
        }
    }
}

/// A tool that hears no interrupt, once it converts; it tells its number.
constexpr auto deafTool = R"(
case "$1" in
-hide_banner) exec /usr/bin/ffmpeg "$@" ;;
-i) exec /usr/bin/ffmpeg "$@" ;;
esac
trap '' INT TERM
for output; do :; done
echo $$ > "${output%/*}/pid"
echo partial > "$output"
while :; do sleep 0.1; done
)";

TEST_F(KVConvertCommandTest, KillsAToolThatHearsNoInterrupt) {
    tone("a.wav");
    useTool(deafTool);
    const auto process = start({"convert", "--preset", "MP3", "a.wav"}, "started");
    ASSERT_TRUE(runUntil([&] { return QFileInfo(path("pid")).size() > 0 && QFile::exists(path("a.mp3")); }));
    ::kill(static_cast<pid_t>(process->processId()), SIGINT);
    EXPECT_EQ(finish(*process).status, 130);
    const auto pid = static_cast<pid_t>(read(path("pid")).trimmed().toInt());
    EXPECT_TRUE(runUntil([&] { return ::kill(pid, 0) != 0; })) << "the tool is still there";
    EXPECT_FALSE(QFile::exists(path("a.mp3")));
}

TEST_F(KVConvertCommandTest, EndsAtOnceOnTheSecondInterrupt) {
    tone("a.wav");
    useTool(deafTool);
    const auto process = start({"convert", "--preset", "MP3", "a.wav"}, "started");
    ASSERT_TRUE(runUntil([&] { return QFileInfo(path("pid")).size() > 0 && QFile::exists(path("a.mp3")); }));
    ::kill(static_cast<pid_t>(process->processId()), SIGINT);
    ::usleep(100'000);
    ::kill(static_cast<pid_t>(process->processId()), SIGINT);
    EXPECT_EQ(finish(*process).status, 130);
    const auto pid = static_cast<pid_t>(read(path("pid")).trimmed().toInt());
    EXPECT_TRUE(runUntil([&] { return ::kill(pid, 0) != 0; })) << "the tool is still there";
    EXPECT_FALSE(QFile::exists(path("a.mp3")));
}

TEST_F(KVConvertCommandTest, SaysThatTheToolIsMissingOrWasKilled) {
    tone("a.wav");
    copies("a.wav", {"b.wav"});
    useTool(R"(
case "$*" in
-hide_banner*|"-i "*) exec /usr/bin/ffmpeg "$@" ;;
*a.wav*) kill -9 $$ ;;
esac
exec /usr/bin/ffmpeg "$@"
)");
    Result result = convert({"a.wav", "b.wav"});
    EXPECT_EQ(result.status, 1);
    ASSERT_EQ(result.array().size(), 2) << result.errors.toStdString();
    EXPECT_EQ(result.array()[0]["error"], "The tool was ended by signal 9.");
    EXPECT_EQ(result.array()[0]["terminationStatus"], 137);
    EXPECT_EQ(result.array()[1]["successful"], true);
    EXPECT_EQ(names(), QStringList({"a.wav", "b.mp3", "b.wav"}));

    ASSERT_TRUE(QFile::remove(path(".prefix/share/kalvora/resources/ffmpeg")));
    ASSERT_TRUE(QFile::link("/nonexistent/ffmpeg", path(".prefix/share/kalvora/resources/ffmpeg")));
    result = convert({"a.wav"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains("ffmpeg")) << result.errors.toStdString();
    EXPECT_EQ(result.array().size(), 1);
}

TEST_F(KVConvertCommandTest, RunsBesideAnotherRunIntoTheSameFolder) {
    tone("a.wav", 5);
    QDir().mkpath(path("out"));
    const QStringList words{"convert", "--preset", "MP3", "--json", "--to", "out", "a.wav"};
    const auto first = start(words, "started");
    const Result second = run(words);
    const Result firstResult = finish(*first);
    EXPECT_EQ(firstResult.status, 0);
    EXPECT_EQ(second.status, 0);
    EXPECT_EQ(names("out"), QStringList({"a.mp3", "a.MP3.00.mp3"}));
    for (const QString &name : names("out"))
        EXPECT_NEAR(secondsOf(path("out/" + name)), 5, 0.3) << name.toStdString();
}

} // namespace
