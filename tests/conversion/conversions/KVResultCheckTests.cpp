#include "conversion/conversions/KVResultCheck.h"
#include "support/KVTestCase.h"
#include "support/KVTestSources.h"
#include "video_info/media_file/KVWaveHeader.h"

#include <QtEndian>

namespace {

class KVResultCheckTest : public KVTestCase {};

/// The messages of a conversion of one source with a picture (stream 0) and sound (stream 1); `problems` come
/// while it is decoded.
KVFFmpegReport report(const QByteArray &problems = {}, const QByteArray &duration = "00:04:00.00",
                      const QByteArray &used = "  Stream #0:0 -> #0:0 (copy)\n  Stream #0:1 -> #0:1 (copy)\n",
                      const QByteArray &sizes = "video:900kB audio:80kB subtitle:0kB other streams:0kB") {
    KVFFmpegReport report;
    report.add("Input #0, mov,mp4,m4a, from 'a.mp4':\n  Duration: " + duration +
               ", start: 0.0\n"
               "  Stream #0:0(und): Video: h264, 160x120\n  Stream #0:1(und): Audio: aac\n"
               "Stream mapping:\n" +
               used + "Press [q] to stop\nOutput #0, mp4, to 'b.mp4':\n  Stream #0:0: Video: h264\n" +
               "frame=    1 fps=0.0 time=00:00:01.00 bitrate=1\r" + problems +
               "frame=   99 fps=0.0 time=00:00:17.00 bitrate=1\r\n" + sizes +
               " global headers:0kB muxing overhead: 0.1%\n");
    return report;
}

KVResultPlan plan(double seconds) {
    KVResultPlan plan;
    plan.seconds = seconds;
    plan.videoTracks = 1;
    plan.audioTracks = 1;
    return plan;
}

KVProbedResult result(double seconds) {
    KVProbedResult result;
    if (seconds > 0) result.seconds = seconds;
    result.videoTracks = 1;
    result.audioTracks = 1;
    return result;
}

QStringList planned(const KVResultPlan &plan) {
    const auto text = [](const char *name, auto value) { return QString("%1 %2").arg(name).arg(value); };
    QStringList parts{text("s", plan.seconds), text("v", plan.videoTracks), text("a", plan.audioTracks),
                      text("t", plan.subtitleTracks)};
    if (plan.pictureSize)
        parts += QString("%1x%2").arg(plan.pictureSize->width()).arg(plan.pictureSize->height());
    return parts;
}

} // namespace

TEST_F(KVResultCheckTest, WarnsOfACopiedPictureThatTheContainerDoesNotName) {
    KVResultPlan copied = plan(240);
    copied.copiedPicture = "gif";
    KVProbedResult found = result(240);
    const auto warnings = [&] { return KVResultCheck::shortcomings(copied, found, report()); };
    found.pictureCodec = "rawvideo";
    EXPECT_EQ(warnings(),
              QStringList{"The picture cannot be played: the format of the result cannot hold \"gif\"."});
    found.pictureCodec = "mpeg1video"; // another name of what was copied
    EXPECT_EQ(warnings(), QStringList());
    copied.copiedPicture = found.pictureCodec = "rawvideo";
    EXPECT_EQ(warnings(), QStringList());
}

TEST_F(KVResultCheckTest, WarnsOfADurationThatIsTooShort) {
    const QByteArray oneError = "Error while decoding stream #0:0: Invalid data\n";
    const QString incomplete = "Only 0:17 of 4:00 was converted: the source is incomplete.";
    struct Row {
        const char *what;
        double planned;
        double converted; // 0 if the probe does not say
        KVFFmpegReport report;
        QString warning;
    };
    const QByteArray soundOnly = "  Stream #0:1 -> #0:0 (aac -> mp3)\n";
    const QList<Row> rows{
        {"whole", 240, 240, report(), {}},
        {"longer", 240, 300, report(), {}},
        {"2 % less", 240, 236, report(), {}},
        {"3 % less", 240, 232.8, report(), "Only 3:52 of 4:00 was converted: the source is incomplete."},
        {"one second less", 3, 2.1, report(), {}},
        {"more than one second less", 3, 1.9, report(),
         "Only 0:01 of 0:03 was converted: the source is incomplete."},
        {"hours", 7200, 3725, report(), "Only 1:02:05 of 2:00:00 was converted: the source is incomplete."},
        {"cut", 240, 17, report("[mov @ 0x1] stream 0, offset 0x609f1: partial file\n" + oneError),
         incomplete},
        {"status line", 240, 0, report(), incomplete},
        {"no duration in the source", 240, 17, report({}, "N/A"), {}},
        {"nothing planned", 0, 17, report(), {}},
        {"many errors", 240, 200, report(oneError.repeated(3)),
         "Only 3:20 of 4:00 was converted: the source is damaged.|The source is damaged in 3 places."},
        {"sound only, which may end early", 240, 17, report({}, "00:04:00.00", soundOnly), {}},
        {"sound only of a cut source", 240, 17,
         report("[matroska,webm @ 0x1] File ended prematurely\n", "00:04:00.00", soundOnly), incomplete},
    };
    for (const Row &row : rows)
        EXPECT_EQ(KVResultCheck::shortcomings(plan(row.planned), result(row.converted), row.report).join('|'),
                  row.warning)
            << row.what;

    KVResultPlan stated = plan(240); // by the header of a WAV file
    stated.isSourceCut = true;
    EXPECT_EQ(KVResultCheck::shortcomings(stated, result(17), report({}, "N/A")), QStringList(incomplete));
}

TEST_F(KVResultCheckTest, CountsThePlacesOfDamage) {
    const QByteArray frame = "[h264 @ 0x1] error while decoding MB 13 4\n"
                             "[h264 @ 0x1] concealing 256 DC, 256 AC, 256 MV errors in P frame\n"
                             "a.ts: corrupt decoded frame in stream 0\n";
    const QList<std::pair<QByteArray, int>> rows{
        {"", 0},
        {frame, 1}, // one frame, three messages
        {frame.repeated(12), 12},
        {"[ogg @ 0x1] CRC mismatch!\n    Last message repeated 5 times\n", 6},
        {"[mp3float @ 0x1] Header missing\nError while decoding stream #0:0: Invalid data\n", 1},
        {"[dec:aac @ 0x1] Error submitting packet to decoder: Invalid data\n", 1},
        {"[matroska,webm @ 0x1] 0x00 at pos 9 (0x9) invalid as first byte of an EBML number\n", 1},
        {"[mp4 @ 0x1] Application provided duration: -1 is invalid\n", 0}, // of the result
        {"    Last message repeated 5 times\n", 0},
    };
    for (const auto &[problems, places] : rows) {
        EXPECT_EQ(report(problems).damagedPlaces(), places) << problems.toStdString();
        const QString warning = places == 0   ? QString()
                                : places == 1 ? QString("The source is damaged in one place.")
                                              : QString("The source is damaged in %1 places.").arg(places);
        EXPECT_EQ(KVResultCheck::shortcomings(plan(9), result(9), report(problems)).join('|'), warning);
    }

    KVResultPlan sound = plan(9); // a tag at the end that is taken for a packet
    sound.videoTracks = 0;
    const QByteArray lost =
        "[mp3float @ 0x1] Header missing\nError while decoding stream #0:0: Invalid data\n";
    EXPECT_EQ(KVResultCheck::shortcomings(sound, result(9), report(lost)), QStringList());
    EXPECT_EQ(KVResultCheck::shortcomings(sound, result(9), report(lost.repeated(2))),
              QStringList("The source is damaged in 2 places."));
    EXPECT_EQ(KVResultCheck::shortcomings(sound, result(9),
                                          report("a.aac: corrupt input packet in stream 0\n" + lost)),
              QStringList("The source is damaged in one place."));

    KVFFmpegReport examined; // the same data is decoded again later
    examined.add("[h264 @ 0x1] error while decoding MB 1 1\nInput #0, mpegts, from 'a.ts':\n");
    EXPECT_EQ(examined.damagedPlaces(), 0);
}

TEST_F(KVResultCheckTest, ReadsMessagesThatAreCutAnywhere) {
    const QByteArray text =
        "Input #0, ogg, from 'a\xff':\n  Duration: 00:00:10.00\n  Stream #0:0: Audio: vorbis\n"
        "  Stream #0:1: Video: theora\nStream mapping:\n  Stream #0:1 -> #0:0 (copy)\n\r\n"
        "[ogg @ 0x1] CRC mismatch!\nsize=      1kB time=00:00:04.50 bitrate=1\r"
        "video:0KiB audio:0KiB subtitle:0KiB other streams:0KiB global headers:4KiB "
        "muxing overhead: unknown\n";
    for (int length = 1; length < 40; ++length) {
        KVFFmpegReport report;
        for (qsizetype i = 0; i < text.size(); i += length)
            report.add(text.mid(i, length));
        EXPECT_EQ(report.damagedPlaces(), 1);
        EXPECT_EQ(report.position(), 4.5);
        EXPECT_TRUE(report.leavesStreamsOut());
        EXPECT_FALSE(report.isDurationEstimated());
        EXPECT_TRUE(report.isResultEmpty());
    }
}

TEST_F(KVResultCheckTest, WarnsOfMissingTracksAndAnotherSize) {
    KVResultPlan promised = plan(10);
    promised.audioTracks = 2;
    promised.subtitleTracks = 1;
    promised.pictureSize = QSize(640, 360);
    KVProbedResult made = result(10);
    made.subtitleTracks = 1;
    made.audioTracks = 2;
    made.pictureSizes = {{480, 360}, {641, 360}}; // stored and displayed
    EXPECT_EQ(KVResultCheck::shortcomings(promised, made, report()), QStringList());

    made.audioTracks = 1;
    made.subtitleTracks = 0;
    made.pictureSizes = {{480, 270}};
    EXPECT_EQ(KVResultCheck::shortcomings(promised, made, report()),
              (QStringList{"The result has only 1 of 2 audio tracks.",
                           "The result has no subtitles although the source has.",
                           "The picture of the result has 480 x 270 instead of 640 x 360 pixels."}));
    made.audioTracks = 0;
    made.videoTracks = 0;
    made.subtitleTracks = 1;
    made.pictureSizes = {};
    EXPECT_EQ(KVResultCheck::shortcomings(promised, made, report()),
              (QStringList{"The result has no picture although the source has one.",
                           "The result has no sound although the source has."}));

    // The track exists, but nothing of it could be decoded.
    const QByteArray silent = "video:900kB audio:0kB subtitle:0kB other streams:0kB";
    const QByteArray used = "  Stream #0:0 -> #0:0\n  Stream #0:1 -> #0:1\n";
    EXPECT_EQ(KVResultCheck::shortcomings(
                  plan(10), result(10),
                  report("Error while decoding stream #0:1: Invalid data\n", "00:00:10.00", used, silent)),
              (QStringList{"The source is damaged in one place.",
                           "The result has no sound although the source has."}));
    EXPECT_EQ(KVResultCheck::shortcomings(plan(10), result(10), report({}, "00:00:10.00", used, silent)),
              QStringList()); // the source has an empty track too
}

TEST_F(KVResultCheckTest, PlansWhatTheArgumentsPromise) {
    auto first = KVTestSources::video({.path = "/in/a.mkv", .audioTracks = 2, .subtitleFormats = {"subrip"}});
    first->seconds = 60;
    first->videoTracks.first().trackNumber = 0;
    auto second = KVTestSources::video({.path = "/in/b.mkv"});
    second->seconds = 30;
    struct Row {
        const char *arguments;
        const char *want;
    };
    const QList<Row> rows{
        {"-y -i /in/a.mkv -s 640x360 -c:v libx264 -c:a:0 aac -sn -map 0:0 -map 0:1 /out/a.mp4",
         "s 60|v 1|a 1|t 0|640x360"},
        {"-y -i /in/a.mkv -c:v copy -c:a:0 aac -c:a:1 aac -c:s copy -map 0:0 -map 0:1 -map 0:1 -map 0:3 "
         "/out/a.mkv",
         "s 60|v 1|a 2|t 1"},
        {"-y -i /in/a.mkv -i /tmp/s.srt -c:v copy -an -map 1 -c:s mov_text -map 0:0 /out/a.mp4",
         "s 60|v 1|a 0|t 1"},
        {"-y -i /in/a.mkv -i /in/b.mkv -filter_complex x -map [v] -map [a] -s 160x120 -an -sn /out/a.mp4",
         "s 90|v 1|a 1|t 0|160x120"},
        {"-y -i /in/a.mkv -vn -c:a:0 libmp3lame -map_metadata 0 /out/a.mp3", "s 60|v 0|a 1|t 0"},
        {"-y -i /in/a.mkv -vn -t 40 -ac 1 -acodec aac /out/a.m4r", "s 40|v 0|a 1|t 0"},
        {"-y -i /in/b.mkv -vn -t 40 -ac 1 -acodec aac /out/b.m4r", "s 30|v 0|a 1|t 0"},
        {"-y -i /in/a.mkv -s 80x60 -gifflags +transdiff -vf scale=-1:-1:sws_dither=ed /out/a.gif",
         "s 60|v 1|a 0|t 0|80x60"},
        {"-y -i /in/a.mkv -filter:v scale='w=1:h=2',pad='w=720:h=576:x=0' -c:a:0 ac3 -map 0:0 -map 0:1 "
         "/out/a.vob",
         "s 60|v 1|a 1|t 0|720x576"},
        {"-y -i /in/a.mkv -vf crop=100:50:0:0 -c:a:0 copy /out/a.mkv", "s 60|v 1|a 1|t 0|100x50"},
        {"-y -i /in/a.mkv -c:v copy -af volume=+0.01dB /out/a.mkv", "s 60|v 1|a 1|t 0"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(
            planned(KVResultPlan::forFiles({first, second}, QString(row.arguments).split(' '))).join('|'),
            row.want)
            << row.arguments;
}

TEST_F(KVResultCheckTest, ReadsTheProbeOfAResult) {
    const auto probed = KVProbedResult::read(
        "Input #0, mov,mp4,m4a,3gp,3g2,mj2, from 'a.mp4':\n"
        "  Duration: 00:01:02.50, start: 0.000000, bitrate: 879 kb/s\n"
        "  Stream #0:0[0x1](und): Video: h264 (High) (avc1 / 0x31637661), yuv420p(tv, bt709), 720x576 "
        "[SAR 16:15 DAR 4:3], 746 kb/s, 25 fps, 25 tbr, 12800 tbn (default)\n"
        "  Stream #0:1[0x2](und): Audio: aac (LC) (mp4a / 0x6134706D), 44100 Hz, stereo, fltp, 128 kb/s\n"
        "  Stream #0:2: Subtitle: mov_text\n  Stream #0:3(eng): Subtitle: subrip\n");
    EXPECT_EQ(probed.seconds, 62.5);
    EXPECT_EQ(probed.videoTracks, 1);
    EXPECT_EQ(probed.audioTracks, 1);
    EXPECT_EQ(probed.subtitleTracks, 2);
    EXPECT_EQ(probed.pictureSizes, (QList<QSize>{{720, 576}, {768, 576}}));

    const QByteArray stream = "  Stream #0:0: Audio: aac, 44100 Hz, stereo\n";
    for (const QByteArray &text : {"  Duration: N/A, bitrate: N/A\n" + stream,
                                   "[aac @ 0x1] Estimating duration from bitrate, this may be inaccurate\n"
                                   "  Duration: 00:00:10.00\n" +
                                       stream})
        EXPECT_FALSE(KVProbedResult::read(text).seconds) << text.toStdString();
    EXPECT_FALSE(KVProbedResult::read("a.mp3: Invalid data found when processing input\n").isReadable());
}

TEST_F(KVResultCheckTest, ReadsTheLengthThatAWaveHeaderStates) {
    const auto wave = [&](quint32 stated, qsizetype present, const QByteArray &before = {}) {
        const auto number = [](quint32 value) {
            QByteArray bytes(4, 0);
            qToLittleEndian(value, bytes.data());
            return bytes;
        };
        return write("a.wav", "RIFF" + number(0) + "WAVE" + before + "fmt " + number(16) +
                                  QByteArray::fromHex("0100020044ac000010b1020004001000") + "data" +
                                  number(stated) + QByteArray(present, 'x'));
    };
    const quint32 second = 176400;
    EXPECT_EQ(KVWaveHeader::statedSeconds(wave(4 * second, 1000)), 4);
    EXPECT_EQ(KVWaveHeader::statedSeconds(wave(4 * second, 0, QByteArray("LIST\3\0\0\0abc\0", 12))), 4);
    EXPECT_EQ(KVWaveHeader::statedSeconds(wave(second, second)), std::nullopt);
    EXPECT_EQ(KVWaveHeader::statedSeconds(wave(0xFFFFFFFF, 1000)), std::nullopt); // written to a pipe
    EXPECT_EQ(KVWaveHeader::statedSeconds(wave(0x7FFFF000, 1000)), std::nullopt);
    EXPECT_EQ(KVWaveHeader::statedSeconds(write("b.wav", "RIFF\0\0\0\0WAVEdata")), std::nullopt);
    EXPECT_EQ(KVWaveHeader::statedSeconds(path("none")), std::nullopt);
}

TEST_F(KVResultCheckTest, MeasuresADiscImageByItsFolder) {
    QDir().mkpath(path("VIDEO_TS"));
    const QString vob = write("VIDEO_TS/VTS_01_1.VOB", QByteArray(4000, 'x'));
    QFile::link(vob, path("VIDEO_TS/VTS_01_2.VOB")); // the image holds one file once
    const auto check = [&](qsizetype size) {
        return KVResultCheck::checkDiscImage(write("a.iso", QByteArray(size, 'x')), path());
    };
    EXPECT_EQ(check(0).failure, "The disc image is empty.");
    EXPECT_EQ(check(3999).warnings, QStringList("The disc image is smaller than what it should hold."));
    EXPECT_EQ(check(4000).warnings, QStringList());
    EXPECT_EQ(check(4000).failure, "");
}
