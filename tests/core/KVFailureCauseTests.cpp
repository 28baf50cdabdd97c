#include "core/KVFailureCause.h"

#include "core/KVErrorCenter.h"
#include "core/KVFailureExcerpts.h"
#include "core/KVFailureTable.h"
#include "presets/video/other/KVDVDPreset.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "util/KVTempDirectory.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QProcess>
#include <QXmlStreamReader>

#include <set>

namespace {

const QString source = "/in/a.mp4";
const QString output = "/out/a.mkv";

class KVFailureCauseTest : public KVTestCase {
  protected:
    static KVConversionError error(const QString &text, int status = 1,
                                   const QStringList &arguments = {"-y", "-i", source, output}) {
        KVConversionError error;
        error.mediaFiles = {std::make_shared<KVVideoFile>(QUrl::fromLocalFile(source))};
        error.taskArguments = arguments;
        error.taskOutput = text;
        error.terminationStatus = status;
        return error;
    }
    static std::string textOf(const KVConversionError &error) {
        return KVFailureCause::of(error).text.toStdString();
    }

    /// Runs the program in the test's folder and returns the failure that its conversion would record.
    KVConversionError failureOf(const QString &tool, const QStringList &arguments,
                                const QString &sourcePath) const {
        QProcess process;
        process.setWorkingDirectory(path());
        process.start(tool, arguments);
        EXPECT_TRUE(process.waitForFinished());
        KVConversionError failure = error(process.readAllStandardError(), process.exitCode(), arguments);
        failure.mediaFiles = {std::make_shared<KVVideoFile>(QUrl::fromLocalFile(sourcePath))};
        EXPECT_NE(failure.terminationStatus, 0) << failure.taskOutput.toStdString();
        return failure;
    }
};

TEST_F(KVFailureCauseTest, FindsTheCauseInWhatTheToolsPrinted) {
    std::set<std::string> causes;
    for (const KVFailureExcerpt &row : excerptsOfFFmpeg) {
        const std::string text = textOf(error(row.output, row.status));
        EXPECT_TRUE(text.starts_with(row.cause)) << row.output << "\n" << text;
        causes.insert(text);
    }
    for (const KVFailureExcerpt &row : excerptsOfMkisofs) {
        const QStringList arguments{"-dvd-video", "-V", "A", "-o", "/out/a.iso", "/tmp/disc"};
        const std::string text = textOf(error(row.output, row.status, arguments));
        EXPECT_TRUE(text.starts_with(std::string("The image of the disc could not be made: ") + row.cause))
            << row.output << "\n"
            << text;
        causes.insert(text);
    }
    for (const KVFailureExcerpt &row : excerptsOfDVDAuthor) {
        const std::string text =
            textOf(error(row.output, row.status, {"-x", "/tmp/a.xml", "-o", "/tmp/disc"}));
        EXPECT_TRUE(text.starts_with(std::string("The disc could not be put together: ") + row.cause))
            << row.output << "\n"
            << text;
        causes.insert(text);
    }
    for (const KVFailureExcerpt &row : reasonsOfPictures) {
        KVConversionError failure = error({}, 1, {});
        failure.reason = row.output;
        EXPECT_TRUE(textOf(failure).starts_with(row.cause)) << row.output << "\n" << textOf(failure);
    }
    EXPECT_GT(causes.size(), 60u);
}

TEST_F(KVFailureCauseTest, FindsTheCauseWhereTheToolsReallyFail) {
    const QString clip = KVTestMedia::clip(path("clip.mp4"), 0.4);
    const QString cut = write("cut.mp4", read(clip).first(read(clip).size() / 2));
    const QString empty = write("empty.mp4", {});
    const QString words = write("words.avi", "no media at all");
    const QString odd = path("odd.mkv");
    KVTestMedia::make({"-f", "lavfi", "-i", "testsrc=size=161x121:duration=0.2", "-c:v", "ffv1", odd});
    write("bare/VIDEO_TS/VTS_01_1.VOB", "no film");
    QDir(path()).mkdir("none");
    struct Row {
        QString tool;
        QString source;
        QStringList arguments; ///< Between the input and the output, for ffmpeg.
        const char *cause;
        KVFailureRetry retry = KVFailureRetry::again;
    };
    const auto none = KVFailureRetry::none;
    const Row rows[]{
        {"ffmpeg", path("gone.mp4"), {"a.mkv"}, "The file to be converted cannot be found: it"},
        {"ffmpeg",
         clip,
         {path("no/a.mkv")},
         "The destination folder does not exist",
         KVFailureRetry::inAnotherFolder},
        {"ffmpeg",
         clip,
         {"-f", "avi", path("none")},
         "A folder has the name",
         KVFailureRetry::inAnotherFolder},
        {"ffmpeg",
         clip,
         {"-f", "avi", path(QString(256, 'x'))},
         "The name of the result is too long",
         KVFailureRetry::inAnotherFolder},
        {"ffmpeg", path("none"), {"a.mkv"}, "This is a folder", none},
        {"ffmpeg", empty, {"a.mkv"}, "The file is empty."},
        {"ffmpeg", cut, {"a.mkv"}, "The file is incomplete: the index"},
        {"ffmpeg", words, {"a.mkv"}, "The file is damaged, or it is no media"},
        {"ffmpeg", odd, {"-c:v", "libx264", "-pix_fmt", "yuv420p", "a.mp4"}, "The encoder takes only", none},
        {"ffmpeg", odd, {"-vn", "a.wav"}, "The file has no track of the kind", none},
        {"ffmpeg", odd, {"-map", "0:5", "a.mkv"}, "The chosen track is not"},
        {"ffmpeg", odd, {"-c", "copy", "a.mp4"}, "The format of the result cannot hold a track", none},
        {"ffmpeg", clip, {"-c:v", "nothing", "a.mkv"}, "The installed ffmpeg lacks the encoder", none},
        {"ffmpeg", clip, {"-nothing", "1", "a.mkv"}, "The installed ffmpeg does not know", none},
        {"ffmpeg",
         clip,
         {"-c:a", "ac3", "-ar", "96000", "a.mkv"},
         "The format does not allow this sample",
         none},
        {"ffmpeg", clip, {"-vf", "crop=0:0", "a.mkv"}, "The part to be cut out", none},
        {"mkisofs",
         path("bare"),
         {"-dvd-video", "-V", "A", "-o", path("a.iso"), path("bare")},
         "The image of the disc could not be made: The DVD folder is incomplete"},
        {"mkisofs",
         path("none"),
         {"-dvd-video", "-V", "A", "-o", path("a.iso"), path("none")},
         "The image of the disc could not be made: The folder holds no DVD"},
        {"mkisofs",
         path("bare"),
         {"-dvd-video", "-V", "A", "-o", path("no/a.iso"), path("bare")},
         "The image of the disc could not be made: The destination folder does not exist",
         KVFailureRetry::inAnotherFolder},
        {"dvdauthor",
         clip,
         {"-x", path("gone.xml"), "-o", path("disc")},
         "The disc could not be put together: An intermediate file"},
    };
    for (const Row &row : rows) {
        const bool isFFmpeg = row.tool == "ffmpeg";
        const QStringList before = isFFmpeg ? QStringList{"-nostdin", "-y", "-i", row.source} : QStringList();
        const auto failure = failureOf(row.tool, before + row.arguments, row.source);
        const auto cause = KVFailureCause::of(failure);
        EXPECT_TRUE(cause.text.startsWith(row.cause)) << cause.text.toStdString() << "\n"
                                                      << failure.taskOutput.toStdString();
        EXPECT_FALSE(cause.remedy.isEmpty()) << row.cause;
        EXPECT_EQ(cause.retry, row.retry) << row.cause;
    }
}

TEST_F(KVFailureCauseTest, TakesNoNameOfAFileAndNoFollowerForTheCause) {
    KVConversionError named =
        error("    title           : No space left on device\n"
              "Input #0, avi, from '/in/Disk quota exceeded.avi':\n"
              "/in/Disk quota exceeded.avi: Invalid data found when processing input\n");
    named.mediaFiles = {std::make_shared<KVVideoFile>(QUrl::fromLocalFile("/in/Disk quota exceeded.avi"))};
    EXPECT_EQ(textOf(named), "The file is damaged, or it is no media file.");

    struct Row {
        const char *output;
        const char *want;
        int status = 1;
    };
    const Row rows[]{
        {"[mp4 @ 0x5] the true reason\n[mp4 @ 0x5] Starting second pass: moving the moov atom to the "
         "beginning of the file\n",
         "the true reason"},
        {"the true reason\nStream mapping:\n  Stream #0:0 -> #0:0\n (opus (native) -> flac (native))\n\n",
         "the true reason"},
        {"the true reason\n    encoder         : Lavc59.37.100 libx264\n[libx264 @ 0x5] using SAR=1/1\n",
         "the true reason"},
        {"[mp4 @ 0x5] Starting second pass: moving the moov atom to the beginning of the file\n",
         "The conversion failed."},
        // Statuses of newer versions that are no signals.
        {"Error opening input files: oh dear\n", "Error opening input files: oh dear", 183},
        {"[Parsed_subtitles_0 @ 0x1] Unable to open /a.srt\n[AVFilterGraph @ 0x2] Error initializing filter "
         "'subtitles' with args '/a.srt'\n" FILTER_FAILED,
         "Unable to open /a.srt"},
        {"[Parsed_crop_0 @ 0x1f]\nInvalid too big or non positive size\n[Parsed_crop_0 @ 0x1f]\n"
         "Failed to configure input pad on Parsed_crop_0\nConversion failed!",
         "Invalid too big or non positive size"},
        {"frame=    1 fps=0.0\r/a.avi: Invalid data found\nvideo:1kB audio:2kB muxing overhead: \nunknown\n\n"
         "Conversion failed!\n",
         "/a.avi: Invalid data found"},
        {"[avi @ 0x1] the true cause\nError initializing output stream 0:1 -- \nStream mapping:\n"
         "  Stream #0:0 -> #0:0 (copy)\n    Last message repeated 1 times\n",
         "the true cause"},
        {"I: -input-charset not specified\ngenisoimage: No such file or directory. Failed to open "
         "VIDEO_TS.IFO\ngenisoimage: Can't open VMG info for '/a/'.\nPossible reasons:\n  - a\n",
         "genisoimage: No such file or directory. Failed to open VIDEO_TS.IFO"},
        {"", "The conversion failed."},
    };
    for (const Row &row : rows)
        EXPECT_EQ(KVFailureCause::errorText(error(row.output, row.status)).toStdString(), row.want);
    EXPECT_EQ(textOf(error("something unheard of\nConversion failed!\n")),
              "The conversion failed: something unheard of");
}

TEST_F(KVFailureCauseTest, NamesTheSubtitlesOfTheUserAndNotTheirCopy) {
    const auto video = std::make_shared<KVVideoFile>(QUrl::fromLocalFile("/in/a.mkv"));
    video->subtitlesFileURL = QUrl::fromLocalFile("/in/mine.srt");
    const QString copy = KVTempDirectoryPath() + "/35C3AFBE.srt";
    for (const QStringList &arguments : {QStringList{"-sub_charenc", "UTF-8", "-i", copy, "/out/a.mp4"},
                                         QStringList{"-vf", "subtitles='" + copy + "'", "/out/a.avi"}}) {
        KVConversionError failure =
            error("[x @ 0x1] " + copy + ": Invalid data found\nConversion failed!\n", 1, arguments);
        failure.mediaFiles = {video};
        EXPECT_EQ(KVFailureCause::errorText(failure), "/in/mine.srt: Invalid data found");
        const auto cause = KVFailureCause::of(failure);
        EXPECT_EQ(cause.text, "The subtitles file is in no format that can be read.");
        EXPECT_EQ(cause.retry, KVFailureRetry::withoutSubtitles);
    }
}

TEST_F(KVFailureCauseTest, NamesTheStepOfADiscAndTheMissingTool) {
    KVConversionError failure = error("/x.vob: No space left on device\n", 1,
                                      {"-y", "-i", source, KVTempDirectoryPath() + "/A/x.vob"});
    failure.targetPreset = std::make_shared<KVDVDPreset>();
    auto cause = KVFailureCause::of(failure);
    EXPECT_TRUE(cause.text.startsWith("A film could not be prepared for the disc: There is no more space"));
    EXPECT_EQ(cause.retry, KVFailureRetry::again) << "the folder does not matter for temporary files";

    cause = KVFailureCause::of(error("ffmpeg is not installed. Install the package \"ffmpeg\".\n", 127));
    EXPECT_EQ(cause.text, "ffmpeg is not installed. Install the package \"ffmpeg\".");
    EXPECT_FALSE(cause.remedy.isEmpty());

    // The folder of the source is not there.
    cause = KVFailureCause::of(error("Couldn't create task, aborting.", -1, {}));
    EXPECT_TRUE(cause.text.startsWith("The destination folder /in is missing")) << cause.text.toStdString();
    EXPECT_EQ(cause.retry, KVFailureRetry::inAnotherFolder);
}

TEST_F(KVFailureCauseTest, ShowsTheCommandAndTheEndOfTheLog) {
    const auto failure = error("Input #0\nframe=  1 fps=0.0 size= 1kB time=00:00:01.00\rfirst\n\nsecond\n"
                               "size= 1kB time=00:00:01.00 bitrate=N/A\rthird\n",
                               1, {"-i", "/in/a b.mp4", "/out/it's.mkv"});
    EXPECT_EQ(KVFailureCause::lastLines(failure, 2), QStringList({"second", "third"}));
    EXPECT_EQ(KVFailureCause::lastLines(failure, 100).size(), 4);
    EXPECT_EQ(KVFailureCause::commandLine(failure), "ffmpeg -i '/in/a b.mp4' '/out/it'\\''s.mkv'");
    EXPECT_EQ(KVFailureCause::commandLine(error("No output URL is set.", 1, {})), "");
}

TEST_F(KVFailureCauseTest, IsCompleteInGerman) {
    QFile file(KV_TEST_DIRECTORY "/../resources/translations/kalvora_de.ts");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QSet<QString> sources;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("source"))
            sources.insert(xml.readElementText());
    for (const KVFailureRow &row : KVFailureTable::rows())
        for (const char *text : {row.text, row.remedy, row.alertText, row.alertRemedy})
            EXPECT_TRUE(!text || sources.contains(text)) << text;
}

} // namespace
