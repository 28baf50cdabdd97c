#include "tasks/KVFFmpegDialect.h"

#include "support/KVTestCase.h"

#include <vector>

namespace {

KVFFmpegCapabilities knowing(const QString &options, const QString &codecOptions) {
    const QStringList common = codecOptions.split(' ');
    const QStringList all = options.split(' ') + common;
    return {QSet<QString>(all.begin(), all.end()), QSet<QString>(common.begin(), common.end())};
}

QString said(const QString &arguments, const KVFFmpegCapabilities &capabilities) {
    return KVFFmpegDialect::argumentsForTool(arguments.split(' '), capabilities).join(' ');
}

class KVFFmpegDialectTest : public KVTestCase {};

TEST_F(KVFFmpegDialectTest, DropsTheQualityOfOpusOnly) {
    const auto tool = knowing("y i aq vn", "flags");
    for (const QString output : {"/b.opus", "/b.OPUS", "/b.ogg", "/b.mp3"}) {
        const QStringList ours{"-i", "/a.opus", "-vn", "-aq", "100", output};
        const bool isOpus = output.endsWith(".opus", Qt::CaseInsensitive);
        EXPECT_EQ(KVFFmpegDialect::argumentsForTool(ours, tool),
                  isOpus ? QStringList({"-i", "/a.opus", "-vn", output}) : ours);
    }
}

TEST_F(KVFFmpegDialectTest, LeavesOutWhatTheToolDoesNotKnow) {
    const auto tool = knowing("y i s c map copyts r vf f vn an movflags", "flags profile level strict");
    struct Row {
        const char *what, *ours, *expected;
    };
    const std::vector<Row> rows{
        {"an option and its value", "-y -i /a -allow_sw 1 -copyts /b", "-y -i /a -copyts /b"},
        {"the last one before the output", "-i /a -aic 2 /b", "-i /a /b"},
        {"two in a row", "-i /a -aic 2 -allow_sw 1 -level 51 /b", "-i /a -level 51 /b"},
        {"a flag that stands alone keeps what follows", "-i /a -sn -vn /b", "-i /a -vn /b"},
        {"a value that looks like an option", "-i /a -strict -2 /b", "-i /a -strict -2 /b"},
        {"a value that is named like an unknown option", "-i /a -flags -global_header /b",
         "-i /a -flags -global_header /b"},
        {"an unknown one with such a value", "-i /a -aq:a:0 -1 -strict -2 /b", "-i /a -strict -2 /b"},
        {"specifiers", "-i /a -c:a:0 aac -b:a:0 128k -profile:v high /b",
         "-i /a -c:a:0 aac -profile:v high /b"},
        {"a medium's letter before a codec option", "-i /a -vprofile high -vcopyts 1 /b",
         "-i /a -vprofile high /b"},
        {"options behind the input and behind the output", "-i /a -y -movflags +faststart /b",
         "-i /a -y -movflags +faststart /b"},
        {"one without its value at the end", "-i /a -aic", "-i /a"},
        {"a rate without its value", "-y -i /a -r -vf crop=1:1:0:0 -f mp4 /b",
         "-y -i /a -vf crop=1:1:0:0 -f mp4 /b"},
        {"a rate by name and by number", "-i /a -r pal -r 25.00 /b", "-i /a -r pal -r 25.00 /b"},
        {"nothing", "", ""},
    };
    for (const Row &row : rows)
        EXPECT_EQ(said(row.ours, tool), row.expected) << row.what;
}

TEST_F(KVFFmpegDialectTest, SaysInTheToolsWordsWhatItKnowsByAnotherName) {
    const auto tool = knowing("y i c f map bsf ac filter b af async", "flags me_method level bf");
    struct Row {
        const char *what, *ours, *expected;
    };
    const std::vector<Row> rows{
        {"a flag", "-flags +4mv", "-flags +mv4"},
        {"a flag among others", "-flags +loop+4mv-qpel", "-flags +loop+mv4-qpel"},
        {"already so", "-flags +loop+mv4", "-flags +loop+mv4"},
        {"no part of another word", "-flags +4mvx+x4mv", "-flags +4mvx+x4mv"},
        {"this encoder's search", "-c:v libx264 -me_method epzs", "-c:v libx264 -me_method dia"},
        {"before the encoder is named", "-me_method epzs -c:v libx264", "-me_method dia -c:v libx264"},
        {"another search", "-c:v libx264 -me_method umh", "-c:v libx264 -me_method umh"},
        {"another encoder", "-c:v mpeg4 -me_method epzs", "-c:v mpeg4 -me_method epzs"},
        {"a device's container", "-c:a:0 aac -f ipod -map 0:0 -map 0:1",
         "-c:a:0 aac -f ipod -map 0:0 -map 0:1"},
        {"one that does not hold the sound", "-c:a:0 libmp3lame -f ipod", "-c:a:0 libmp3lame -f mp4"},
        {"one for two tracks", "-f psp -map 0:0 -map 0:1", "-f psp -map 0:0 -map 0:1"},
        {"one for two tracks, given one", "-f psp -map 0:0", "-f mp4 -map 0:0"},
        {"a level that is none", "-c:v libx264 -level 0 -bf 0", "-c:v libx264 -bf 0"},
        {"a level", "-c:v libx264 -level 10", "-c:v libx264 -level 10"},
        {"a filter of the picture", "-bsf h264_mp4toannexb -bsf:a x", "-bsf:v h264_mp4toannexb -bsf:a x"},
        {"a bit rate too low for so many channels", "-c:a:0 libvorbis -ac:a:0 5 -b:a:0 128k",
         "-c:a:0 libvorbis -filter:a:0 aformat=channel_layouts=5.0|5.0(side)|4.1 -b:a:0 160k"},
        {"one that does", "-c:a:0 libvorbis -ac:a:0 2 -b:a:0 64k", "-c:a:0 libvorbis -ac:a:0 2 -b:a:0 64k"},
        {"another encoder's", "-c:a:0 ac3 -ac:a:0 4 -b:a:0 96k", "-c:a:0 ac3 -ac:a:0 4 -b:a:0 96k"},
        {"sound in step", "-async 50 -c:a:0 libmp3lame -ac:a:0 2",
         "-af aresample=async=50:first_pts=0:min_comp=0.01 -c:a:0 libmp3lame -ac:a:0 2"},
        {"sound that is filtered", "-async 50 -af x -c:a:0 libmp3lame", "-async 50 -af x -c:a:0 libmp3lame"},
        {"sound that is copied", "-async 50 -c:a:0 copy", "-async 50 -c:a:0 copy"},
        {"not an option's value", "-i epzs -y 4mv", "-i epzs -y 4mv"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(said(row.ours, tool), row.expected) << row.what;
}

TEST_F(KVFFmpegDialectTest, AddsWhatTheToolNeedsToDoWhatOursMeans) {
    struct Row {
        const char *what, *ours, *expected;
    };
    const std::vector<Row> rows{
        {"a late beginning", "-copyts -bf 0", "-copyts -start_at_zero -bf 0"},
        {"a profile of eight bits", "-c:v libx264 -profile high -bf 0",
         "-c:v libx264 -profile high -pix_fmt yuv420p -bf 0"},
        {"a picture without transparency", "-c:v libvpx -bf 0", "-c:v libvpx -pix_fmt yuv420p -bf 0"},
        {"a picture that is copied", "-y -i /a -i /b -c:v copy /c",
         "-y -fflags +genpts -i /a -i /b -c:v copy /c"},
        {"another encoder's profile", "-c:v prores -profile high -bf 0", "-c:v prores -profile high -bf 0"},
    };
    const auto tool = knowing("y i c copyts start_at_zero profile", "bf fflags pix_fmt");
    for (const Row &row : rows)
        EXPECT_EQ(said(row.ours, tool), row.expected) << row.what;
    const auto later = knowing("i c map disposition", "bf");
    EXPECT_EQ(said("-i /a -c:v mpeg4 -map 0:1 /b", later),
              "-i /a -c:v mpeg4 -disposition:v:0 default -map 0:1 /b");
    EXPECT_EQ(said("-i /a -c:v copy /b", later), "-i /a -c:v copy /b") << "a cover that stays one";
    EXPECT_EQ(said("-copyts -bf 0", knowing("c copyts", "bf")), "-copyts -bf 0") << "a tool that cannot";
}

TEST_F(KVFFmpegDialectTest, ToolThatCouldNotBeAskedGetsOurOptionsAsTheyAre) {
    EXPECT_EQ(said("-i /a -allow_sw 1 -aic 2 /b", {}), "-i /a -allow_sw 1 -aic 2 /b");
}

TEST_F(KVFFmpegDialectTest, NamesOfFilesAreNeverChanged) {
    const QStringList list{"-i", "/-y 4mv", "/a\nb -aic 2:é\"'%", "/-"};
    EXPECT_EQ(KVFFmpegDialect::argumentsForTool(list, knowing("i", "flags")), list);
}

TEST_F(KVFFmpegDialectTest, SubtitlesAreBurntInFromWhateverFolder) {
    const auto filter = [](const QString &ours) {
        return KVFFmpegDialect::argumentsForTool({"-vf", ours}, {}).value(1);
    };
    EXPECT_EQ(filter("subtitles='/a b/c.srt'"), "subtitles=/a b/c.srt");
    EXPECT_EQ(filter("subtitles='/it's: a,[b];\\c.srt'"),
              "subtitles=/it\\\\\\'s\\\\: a\\,\\[b\\]\\;\\\\\\\\c.srt");
    EXPECT_EQ(filter("crop=1:2:'3':4"), "crop=1:2:'3':4");
}

TEST_F(KVFFmpegDialectTest, ProbeTextOfAnyVersionReadsAlike) {
    struct Row {
        const char *what, *theirs, *ours;
    };
    const std::vector<Row> rows{
        {"a quarter turn", "      displaymatrix: rotation of -90.00 degrees\n",
         "      displaymatrix: rotation of -90.00 degrees\n      rotate          : 90\n"},
        {"the other way, nearly", "  displaymatrix: rotation of 89.99 degrees",
         "  displaymatrix: rotation of 89.99 degrees\n  rotate          : 90"},
        {"half a turn", "  displaymatrix: rotation of 180.00 degrees",
         "  displaymatrix: rotation of 180.00 degrees"},
        {"a slight turn", "  displaymatrix: rotation of -9.00 degrees",
         "  displaymatrix: rotation of -9.00 degrees"},
        {"beyond", "  displaymatrix: rotation of 900.00 degrees",
         "  displaymatrix: rotation of 900.00 degrees"},
        {"the older line", "      rotate          : 180", "      rotate          : 180"},
        {"a subtitle", "  Stream #0:2[0x3](eng): Subtitle: mov_text (tx3g / 0x67337874)",
         "  Stream #0:2(eng): Subtitle: mov_text (tx3g / 0x67337874)"},
        {"each line",
         "\n  Stream #0:0[0x1]: Video: h264\n    Metadata:\n  Stream #0:1[0xFf](und): Audio: aac\r\n",
         "\n  Stream #0:0: Video: h264\n    Metadata:\n  Stream #0:1(und): Audio: aac\r\n"},
        {"the older line", "  Stream #0:1(und): Audio: aac", "  Stream #0:1(und): Audio: aac"},
        {"a thousand pictures a second", "  Stream #0:0: Video: h264, 16x16, 1k fps, 2k tbr, 16k tbn",
         "  Stream #0:0: Video: h264, 16x16, 1000 fps, 2000 tbr, 16k tbn"},
        {"the clock of MPEG", "  Stream #0:0: Video: mjpeg, 16x16, 90k tbr, 90k tbn",
         "  Stream #0:0: Video: mjpeg, 16x16, 90k tbr, 90k tbn"},
        {"a title that only looks so", "      title           : Stream #0:1[0x1]",
         "      title           : Stream #0:1[0x1]"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(KVFFmpegDialect::probeTextFromTool(row.theirs), row.ours) << row.what;
}

TEST_F(KVFFmpegDialectTest, LayoutsCountTheirChannels) {
    const auto layoutIn = [](const QString &layout) {
        const QString line = "  Stream #0:0: Audio: x, 48000 Hz, %1, s16";
        const QString ours = KVFFmpegDialect::probeTextFromTool(line.arg(layout));
        EXPECT_TRUE(ours.startsWith("  Stream #0:0: Audio: x, 48000 Hz, ") && ours.endsWith(", s16"));
        return ours.section(", ", 2, 2);
    };
    for (const QString known :
         {"mono", "stereo", "5.1", "5.1(side)", "6.1", "6.1(back)", "6.1(front)", "unknown"})
        EXPECT_EQ(layoutIn(known), known);
    const std::vector<std::pair<const char *, int>> rows{
        {"2.1", 3},
        {"3.0", 3},
        {"3.0(back)", 3},
        {"4.0", 4},
        {"quad", 4},
        {"quad(side)", 4},
        {"3.1", 4},
        {"5.0", 5},
        {"5.0(side)", 5},
        {"4.1", 5},
        {"6.0", 6},
        {"6.0(front)", 6},
        {"hexagonal", 6},
        {"7.0", 7},
        {"7.0(front)", 7},
        {"7.1", 8},
        {"7.1(wide-side)", 8},
        {"7.1(top)", 8},
        {"octagonal", 8},
        {"5.1.2", 8},
        {"downmix", 2},
        {"22.2", 24},
        {"hexadecagonal", 16},
        {"12 channels", 12},
        {"3 channels (FL+FR+BC)", 3},
    };
    for (const auto &[layout, channels] : rows)
        EXPECT_EQ(layoutIn(layout), QString("%1 channels").arg(channels)) << layout;
    EXPECT_EQ(layoutIn("ambisonic 1"), "4 channels (ambisonic)");
    EXPECT_EQ(layoutIn("ambisonic 1+stereo"), "6 channels (ambisonic)");
    EXPECT_EQ(KVFFmpegDialect::probeTextFromTool("  Stream #0:0: Audio: x, 48000 Hz, 7.1"),
              "  Stream #0:0: Audio: x, 48000 Hz, 8 channels");
}

TEST_F(KVFFmpegDialectTest, EncoderMayKeepTheLayoutOfTheSource) {
    struct Row {
        const char *ours, *expected;
    };
    const std::vector<Row> rows{
        {"-ac:a:0 2", "-ac:a:0 2"},
        {"-ac:a:1 4", "-filter:a:1 aformat=channel_layouts=4.0|quad|quad(side)|3.1"},
        {"-c:a:0 alac -ac:a:0 4", "-c:a:0 alac -ac:a:0 4"},
        {"-ac:a:0 16", "-ac:a:0 16"},
        {"-filter_complex x -ac:a:0 4", "-filter_complex x -ac:a:0 4"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(said(row.ours, {}), row.expected);
}

TEST_F(KVFFmpegDialectTest, BytesThatAreNotTextKeepTheirLine) {
    EXPECT_EQ(KVFFmpegDialect::textFromTool("title : Gr\xFC\xDF\xE4\nStream \xC3\xA4\n\xC3\n"),
              QString::fromUtf8("title : Gr\uFFFD\uFFFD\uFFFD\nStream ä\n\uFFFD\n"));
}

} // namespace
