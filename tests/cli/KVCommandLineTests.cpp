#include "cli/KVCommandTestCase.h"
#include "cli/KVInputPath.h"
#include "cli/KVNearestNames.h"
#include "cli/KVParsedWords.h"
#include "cli/KVPrintableText.h"
#include "cli/KVValueText.h"
#include "core/KVErrorCenter.h"
#include "core/KVFailureCause.h"

#include <QDir>

#include <clocale>

namespace {

class KVCommandLineTest : public KVCommandTestCase {};

TEST_F(KVCommandLineTest, TellsInOneLineWhatIsWrong) {
    write("a.wav", "x");
    const struct {
        QStringList words;
        const char *said;
    } rows[]{
        {{}, "a subcommand is missing"},
        {{"convrt"}, "unknown subcommand \"convrt\" (did you mean \"convert\"?)"},
        {{"--json"}, "unknown subcommand"},
        {{"probe"}, "a FILE is missing"},
        {{"probe", "--"}, "a FILE is missing"},
        {{"probe", "-a.wav"}, "unknown option -a.wav"},
        {{"probe", "--jsn", "a.wav"}, "unknown option --jsn (did you mean \"--json\"?)"},
        {{"probe", "--json=yes", "a.wav"}, "--json takes no value"},
        {{"presets", "--type", "sound"}, "\"sound\" is no type"},
        {{"presets", "--type", "none"}, "\"none\" is no type"},
        {{"presets", "MP3"}, "nothing to name"},
        {{"convert", "a.wav"}, "--preset NAME is missing"},
        {{"convert", "--preset"}, "--preset needs a value"},
        {{"convert", "--preset", "--json", "a.wav"}, "--preset needs a value"},
        {{"convert", "--preset", "MP3"}, "a FILE is missing"},
        {{"convert", "--preset", "mp3", "a.wav"}, "no preset \"mp3\" (did you mean \"MP3\""},
        {{"convert", "--preset", "MP3", "--preset", "AAC", "a.wav"}, "--preset is given twice"},
        {{"convert", "--preset", "MP3", "--set", "ZRAudioBitrate", "a.wav"}, "KEY=VALUE"},
        {{"convert", "--preset", "MP3", "--set", "ZRAudioBitrat=1", "a.wav"},
         "no setting ZRAudioBitrat (did you mean \"ZRAudioBitrate\"?)"},
        {{"convert", "--preset", "MP3", "--set", "ZRAudioBitrate=fast", "a.wav"}, "\"fast\" is no value"},
        {{"convert", "--preset", "MP3", "--set", "ZRAudioBitrate=true", "a.wav"}, "\"true\" is no value"},
        {{"convert", "--preset", "MP3", "--set", "ZRAudioBitrate=1.5", "a.wav"}, "\"1.5\" is no value"},
        {{"convert", "--preset", "MP3", "--set", "KVAudioTrackQuality=9", "a.wav"}, "\"9\" is no value"},
        {{"convert", "--preset", "iPhone 5", "--set", "ZRMaxWidth=10", "a.avi"},
         "has a ZRMaxWidth of its own"},
        {{"convert", "--preset", "MP4 (MPEG-4)", "--set", "ZRUsesH264=true", "a.avi"},
         "has a ZRUsesH264 of its own"},
        {{"convert", "--preset", "MP3", "--set", "ZRPresetName=X", "a.wav"}, "cannot be changed"},
        {{"convert", "--preset", "MP3", "--audio-track", "one", "a.wav"}, "\"one\" is no track number"},
        {{"convert", "--preset", "MP3", "--subtitles-encoding", "utf-99", "a.wav"}, "no text encoding"},
        {{"convert", "--preset", "MP3", "--to", "", "a.wav"}, "--to needs a folder"},
        {{"arguments", "--preset", "MP3", "--stitch", "a.wav"}, "unknown option --stitch"},
        {{"preferences", "show"}, "none of get, set and remove"},
        {{"preferences", "set", "ZRKey"}, "a KEY and a VALUE"},
        {{"preferences", "get"}, "one KEY"},
        {{"start", "--queue", "none"}, "\"none\" is no queue"},
        {{"select-preset"}, "one NAME is wanted"},
        {{"add"}, "a FILE or URL is missing"},
    };
    for (const auto &row : rows) {
        const Result result = run(row.words);
        const std::string label = row.words.join(' ').toStdString();
        EXPECT_EQ(result.status, 2) << label;
        EXPECT_EQ(result.output, QByteArray()) << label;
        EXPECT_EQ(result.errorLines().size(), 1) << label << '\n' << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains(row.said)) << label << '\n' << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains("--help")) << label;
    }
    EXPECT_EQ(names(), QStringList("a.wav"));
}

TEST_F(KVCommandLineTest, HelpsEverywhere) {
    for (const QString command : {"", "probe", "presets", "arguments", "convert", "preferences", "start",
                                  "pause", "select-preset", "add"}) {
        const Result result = run({command, "--help"});
        EXPECT_EQ(result.status, 0) << command.toStdString();
        EXPECT_TRUE(result.output.contains("Usage:")) << command.toStdString();
        EXPECT_TRUE(result.output.contains(command.toUtf8())) << command.toStdString();
    }
    const QByteArray bare = "env -i LC_ALL=C HOME=/nonexistent \"$0\" convert --bogus --help";
    EXPECT_EQ(runShell(bare).status, 0);
    EXPECT_EQ(runShell("\"$0\" --version").output, "kalvoractl 0.1.0\n");
}

TEST_F(KVCommandLineTest, SurvivesAReaderThatLeavesAndAFullDisk) {
    write("a.png", "x");
    const Result full = runShell("\"$0\" presets > /dev/full");
    EXPECT_EQ(full.status, 1);
    EXPECT_TRUE(full.errors.contains("No space left on device"));
    const Result early = runShell("(sleep 0.2; \"$0\" presets --json; echo $? >&2) | true");
    EXPECT_EQ(early.errors, "1\n");

    // The first file that is opened must not take the place of the stream and get the results.
    const Result closed = runShell("\"$0\" preferences set ZRiTunesGenre x; "
                                   "\"$0\" preferences >&-; echo $?; \"$0\" --help >&-; echo $?");
    EXPECT_EQ(closed.output, "1\n1\n");
    EXPECT_EQ(closed.errors.count("Bad file descriptor"), 2) << closed.errors.toStdString();
    EXPECT_EQ(run({"preferences", "get", "ZRiTunesGenre"}).output, "x\n");
}

TEST_F(KVCommandLineTest, ReadsOptionsAndNames) {
    const QList<KVCommandOption> options{{"flag", {}, {}}, {"to", "FOLDER", {}}, {"set", "K=V", {}, true}};
    const auto parsed = KVParsedWords::parse(
        {"a", "--to=--x", "--set", "k=v=w", "--flag", "--set", "-1", "--", "--flag", "-b", "\xe9"}, options);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->value("to"), "--x");
    EXPECT_EQ(parsed->values("set"), QStringList({"k=v=w", "-1"}));
    EXPECT_TRUE(parsed->isSet("flag"));
    ASSERT_EQ(parsed->arguments().size(), 4);
    EXPECT_EQ(parsed->arguments()[1].text, "--flag");
    EXPECT_EQ(parsed->arguments()[2].text, "-b");
    EXPECT_FALSE(parsed->arguments()[3].isReadable);
    EXPECT_EQ(parsed->arguments()[3].text, "\\xE9");
    EXPECT_FALSE(KVParsedWords::parse({"--to", "\xe9"}, options));
}

TEST_F(KVCommandLineTest, MakesPathsAbsoluteWithoutFollowingLinks) {
    QDir().mkpath(path("real/sub"));
    ASSERT_TRUE(QFile::link(path("real/sub"), path("link")));
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(path()));
    EXPECT_EQ(KVInputPath::absolute("./a//b/../c.wav"), path("a/c.wav"));
    EXPECT_EQ(KVInputPath::absolute("link/c.wav"), path("link/c.wav"));
    EXPECT_EQ(KVInputPath::absolute("link/../c.wav"), path("link/../c.wav")) << "is real/c.wav";
    EXPECT_EQ(KVInputPath::absolute("/../a/"), "/a");
    QDir::setCurrent(before);
}

TEST_F(KVCommandLineTest, ReadsValues) {
    EXPECT_EQ(KVValueText::parse("true"), QVariant(true));
    EXPECT_EQ(KVValueText::parse("-7"), QVariant(qint64{-7}));
    EXPECT_EQ(KVValueText::parse("2.50"), QVariant(2.5));
    for (const QString text : {"True", "", " 1", "1 ", "0x10", "inf", "nan", "1,5", "12kbit"})
        EXPECT_EQ(KVValueText::parse(text), QVariant(text)) << text.toStdString();
}

TEST_F(KVCommandLineTest, FindsTheNearestNames) {
    const QStringList names{"MP3", "MP4", "MP4 (MPEG-4)", "iPhone 5S", "iPhone 6", "JPEG"};
    EXPECT_EQ(KVNearestNames::of("mp4", names), QStringList({"MP4", "MP3", "MP4 (MPEG-4)"}));
    EXPECT_EQ(KVNearestNames::of("iphone 5", names).first(), "iPhone 5S");
    EXPECT_EQ(KVNearestNames::of("something else", names), QStringList());
    EXPECT_EQ(KVNearestNames::hint("jpg", names), " (did you mean \"JPEG\"?)");
}

TEST_F(KVCommandLineTest, PrintsAnyNameOnOneLine) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    EXPECT_EQ(KVPrintableText::ofText("a\nb\x1b[2J"), "a\\x0Ab\\x1B[2J");
    EXPECT_EQ(KVPrintableText::ofBytes("\xc3\xa9"), "é");
    EXPECT_EQ(KVPrintableText::ofBytes("\xe9t\n"), "\\xE9t\\x0A");
    EXPECT_EQ(KVPrintableText::width("日本"), 4);
    EXPECT_EQ(KVPrintableText::truncated("abcdefgh", 5), "ab…gh");
    EXPECT_EQ(KVPrintableText::truncated("日本語の歌", 7), "日…の歌");
    EXPECT_EQ(KVPrintableText::padded("日", 4), "日  ");
}

TEST_F(KVCommandLineTest, DrawsOneSentenceFromWhatAToolPrints) {
    const struct {
        QString output;
        int status;
        const char *text;
    } rows[]{
        {"frame= 1\rsize= 2\n[mp3 @ 0x55] Invalid data found\nConversion failed!\n", 1, "Invalid data found"},
        {"x.wav: No such file or directory\n", 1, "x.wav: No such file or directory"},
        {"av_interleaved_write_frame(): No space left on device\nConversion failed!\n", 1,
         "There is no more space left on the disk."},
        {"Press [q] to stop, [?] for help\nsize=  1kB time=00:00:01\n", 137,
         "The tool was ended by signal 9."},
        {"size=  1kB time=00:00:01\r\n", 255, "The conversion failed."},
        {"", 1, "The conversion failed."},
    };
    for (const auto &row : rows) {
        KVConversionError error;
        error.taskArguments = QStringList("-y");
        error.taskOutput = row.output;
        error.terminationStatus = row.status;
        EXPECT_EQ(KVFailureCause::errorText(error), row.text) << row.output.toStdString();
    }
}

} // namespace
