#include "cli/KVCommandTestCase.h"
#include "support/KVTestMedia.h"

namespace {

class KVConvertFailureTest : public KVCommandTestCase {
  protected:
    /// A small file system of its own around the run, where the machine lets us.
    static QByteArray inSmallFileSystem(const QByteArray &script, const QByteArray &size = "64k") {
        return "mkdir -p small && unshare -rm sh -c 'mount -t tmpfs -o size=" + size + " none small && " +
               script + "' \"$0\"";
    }
    static QString errorOf(const Result &result, qsizetype entry = 0) {
        return result.array()[entry]["error"].toString();
    }
};

TEST_F(KVConvertFailureTest, TellsOfAFullDisk) {
    KVTestMedia::tone(path("long.wav"), 20);
    const Result full = runShell(inSmallFileSystem(
        "\"$0\" convert --preset WAV --json --to small long.wav; code=$?; ls small >&2; exit $code"));
    if (full.errors.contains("unshare")) GTEST_SKIP() << "no file system of our own on this machine";
    EXPECT_EQ(full.status, 1);
    ASSERT_EQ(full.array().size(), 1) << full.output.toStdString() << full.errors.toStdString();
    EXPECT_EQ(full.array()[0]["error"], "There is no more space left on the disk.");
    EXPECT_FALSE(full.errors.endsWith("long.wav\n")) << "the partial output is gone";

    // What is short enough is written at the end alone, and some tools call that a success.
    const Result late = runShell(inSmallFileSystem("cat /dev/zero >small/filler 2>/dev/null; \"$0\" convert "
                                                   "--preset MP3 --json --to small long.wav; ls small >&2"));
    ASSERT_EQ(late.array().size(), 1) << late.output.toStdString() << late.errors.toStdString();
    EXPECT_EQ(late.array()[0]["error"], "There is no more space left on the disk.");
    EXPECT_TRUE(late.errors.endsWith("\nfiller\n")) << late.errors.toStdString();
}

TEST_F(KVConvertFailureTest, TellsThatTemporaryFilesFindNoRoom) {
    KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=720x576:duration=1", "-c:v", "mpeg4", "-q:v", "2",
                       path("film.avi")});
    write("mine.srt", "1\n00:00:00,000 --> 00:00:01,000\nWords\n");
    const QByteArray filler = "cat /dev/zero >small/filler 2>/dev/null;";
    const auto convertInSmallHome = [&](const QByteArray &size, const QByteArray &before,
                                        const QByteArray &words) {
        // The first run leaves the program's own files there.
        return runShell(
            inSmallFileSystem("export XDG_DATA_HOME=$PWD/small; \"$0\" convert --preset MP4 film.avi "
                              "2>/dev/null; rm film.mp4; " +
                                  before + " \"$0\" convert --json film.avi --preset " + words,
                              size));
    };
    const Result film = convertInSmallHome("64k", filler, "MP4 --subtitles mine.srt");
    if (film.errors.contains("unshare")) GTEST_SKIP() << "no file system of our own on this machine";
    EXPECT_EQ(film.status, 1) << "not all that was asked for";
    EXPECT_TRUE(film.errors.contains("mine.srt is left out: ")) << film.errors.toStdString();
    EXPECT_TRUE(film.array()[0]["successful"].toBool()) << film.output.toStdString();
    EXPECT_NEAR(secondsOf(path("film.mp4")), 1, 0.2);

    const Result first = runShell(inSmallFileSystem(
        filler + "export XDG_DATA_HOME=$PWD/small; \"$0\" convert --json --preset MP4 film.avi"));
    EXPECT_EQ(first.status, 1);
    EXPECT_TRUE(first.errors.contains("own files cannot be written: ")) << first.errors.toStdString();
    EXPECT_TRUE(first.errors.contains("No space left on device")) << first.errors.toStdString();

    // No room for the film of a disc; then room for the film and none for the disc.
    for (const Result &disc : {convertInSmallHome("64k", filler, "DVD"),
                               convertInSmallHome("700k", "", "DVD --set ZRBitrate=9000")})
        EXPECT_EQ(errorOf(disc), "There is no more space left on the disk.") << disc.errors.toStdString();
    EXPECT_EQ(names().filter(".iso"), QStringList());
}

TEST_F(KVConvertFailureTest, TellsWhatIsWrongWithAVideoAndWithADisc) {
    const QStringList clip{"-f", "lavfi", "-i", "testsrc2=size=160x120:duration=0.4",
                           "-f", "lavfi", "-i", "sine=duration=0.4"};
    KVTestMedia::make(
        clip + QStringList{"-c:v", "libx264", "-bsf:v", "filter_units=remove_types=7|8", path("nosize.ts")});
    KVTestMedia::make(clip + QStringList{"-c:v", "mpeg4", "-frames:v", "0", path("noframes.avi")});
    KVTestMedia::make(clip + QStringList{path("good.mkv")});
    write("blank.srt", "");
    ASSERT_TRUE(QFile::copy(path("good.mkv"), path("blank.mkv")));
    write("words.srt", "no subtitles");
    const QByteArray before = read(path("nosize.ts")) + read(path("noframes.avi"));

    Result result = run({"convert", "--json", "--preset", "MP4", "nosize.ts", "noframes.avi", "good.mkv"});
    EXPECT_EQ(result.status, 1);
    ASSERT_EQ(result.array().size(), 3) << result.output.toStdString();
    EXPECT_EQ(errorOf(result, 0), "The file does not tell the size of its picture.");
    EXPECT_EQ(result.array()[0]["cause"], "The file does not tell the size of its picture.");
    EXPECT_FALSE(result.array()[0]["remedy"].toString().isEmpty());
    EXPECT_TRUE(result.errors.contains("  " + result.array()[0]["remedy"].toString().toUtf8() + "\n"));
    EXPECT_TRUE(result.array()[1]["cause"].isNull() && result.array()[1]["remedy"].isNull());
    EXPECT_TRUE(result.array()[1]["warnings"].isArray());
    EXPECT_EQ(result.array()[1]["output"], path("good.mp4"));
    EXPECT_EQ(errorOf(result, 2), "The file describes its tracks but contains no media data.");
    EXPECT_EQ(names().filter(".mp4"), QStringList("good.mp4"));
    EXPECT_EQ(read(path("nosize.ts")) + read(path("noframes.avi")), before);

    const QString words = path("words.srt");
    for (const char *preset : {"MP4", "WMV"}) {
        result = run({"convert", "--json", "--preset", preset, "--subtitles", words, "good.mkv"});
        EXPECT_TRUE(errorOf(result).contains(words)) << result.output.toStdString();
    }
    result = run({"convert", "--json", "--preset", "MP4", "blank.mkv"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.errors.contains("blank.srt is left out: it is empty")) << result.errors.toStdString();
    const QJsonArray warnings = result.array()[0]["warnings"].toArray();
    ASSERT_EQ(warnings.size(), 1) << result.output.toStdString();
    EXPECT_TRUE(warnings[0].toString().contains("blank.srt"));
    EXPECT_TRUE(result.errors.contains("blank.mkv: warning: The subtitles ")) << result.errors.toStdString();
    result = run({"convert", "--strict", "--json", "--preset", "MP4", "blank.mkv"});
    EXPECT_EQ(result.status, 1) << "a warning counts";
    EXPECT_TRUE(result.array()[0]["successful"].toBool());
    EXPECT_EQ(run({"convert", "--strict", "--preset", "MP3", "good.mkv"}).status, 0);

    write("empty.mp4", "");
    result = run({"convert", "--json", "--preset", "MP3", "empty.mp4"});
    ASSERT_EQ(result.array().size(), 1) << result.output.toStdString();
    EXPECT_EQ(result.array()[0]["cause"], result.array()[0]["error"]);
    EXPECT_TRUE(result.array()[0]["remedy"].isNull() && result.array()[0]["warnings"].isArray());

    write("disc/VIDEO_TS/VTS_01_1.VOB", "no film");
    result = run({"convert", "--json", "--preset", "DVD", "disc/VIDEO_TS", "good.mkv"});
    ASSERT_EQ(result.array().size(), 2) << result.output.toStdString() << result.errors.toStdString();
    QStringList errors{errorOf(result, 0), errorOf(result, 1)};
    const QString causes = result.array()[0]["cause"].toString() + result.array()[1]["cause"].toString();
    EXPECT_TRUE(causes.startsWith("The image of the disc could not be made: The DVD folder is incomplete"))
        << causes.toStdString();
    EXPECT_TRUE(errors.filter("Failed to open VIDEO_TS.IFO").size() == 1 && errors.contains(""))
        << result.output.toStdString();
    EXPECT_EQ(names().filter(".iso"), QStringList("good.iso"));
    EXPECT_EQ(read(path("disc/VIDEO_TS/VTS_01_1.VOB")), "no film");
}

} // namespace
