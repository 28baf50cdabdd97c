#include "video_info/media_file/KVProbeText.h"

#include "support/KVTestCase.h"

#include <vector>

namespace {

const QString videoLine = "  Stream #0:0: Video: h264, yuv420p, 1920x1080, 25 fps, 25 tbr, 90k tbn\n";

TEST(KVProbeTextTest, ReadsTheDurationFromTheFirstLineThatTellsIt) {
    struct Row {
        const char *text;
        qint64 fileSize;
        double seconds;
    };
    const std::vector<Row> rows{
        {"  Duration: 01:02:03.50, start: 0.000000, bitrate: 128 kb/s\n", 5, 3723.5},
        {"Duration: 00:00:01.00, start: 0\nDuration: 00:00:09.00", 0, 1},
        {"Duration: N/A, bitrate: N/A", 15999, 0},
        {"Duration: N/A, bitrate: N/A", 16000, 1},
        {"Duration: 12:34", 16000, 0},
        {"Duration:00:00:09.00", 16000, 0},
        {"", 16000, 0},
    };
    for (const Row &row : rows)
        EXPECT_EQ(KVProbeText::read(row.text, row.fileSize).seconds, row.seconds) << row.text;
}

TEST(KVProbeTextTest, CountsStreamsOnlyBehindTheDuration) {
    const QString audio = "  Stream #0:1: Audio: mp3, 44100 Hz, mono, s16p, 64 kb/s\n";
    const auto probe =
        KVProbeText::read(videoLine + "  Duration: 00:00:02.50, start: 0\n" + audio + "  Metadata:\n", 0);
    EXPECT_TRUE(probe.videoTracks.isEmpty());
    EXPECT_EQ(probe.audioTracks.size(), 1);
}

TEST(KVProbeTextTest, SortsStreamsByKindAndNamesThem) {
    const auto probe =
        KVProbeText::read("  Duration: 00:00:02.50, start: 0.000000, bitrate: 229 kb/s\r\n"
                          "  Stream #0:0: Video: h264, yuv420p, 64x48, 29.97 fps, 29.97 tbr, 1k tbn\r\n"
                          "  Stream #0:1(eng): Audio: aac (LC), 44100 Hz, stereo, fltp (default)\n"
                          "  Stream #0:2: Audio: aac (LC), 44100 Hz, stereo, fltp\n"
                          "  Stream #0:3(deu): Subtitle: subrip (srt)\n"
                          "  Stream #0:4: Subtitle: subrip\n"
                          "  Stream #0:5: Data: bin_data (text / 0x74786574)\n"
                          "  Stream #0:6: Attachment: ttf\n"
                          "  Stream #0 Audio: mp3\n"
                          "  Stream #0:7: Audio: flac (Video: cover), 8000 Hz, mono\n"
                          "At least one output file must be specified\n",
                          0);
    EXPECT_EQ(probe.videoTracks.size(), 1);
    EXPECT_EQ(probe.videoTracks.value(0).numberOfFrames, 74);
    ASSERT_EQ(probe.audioTracks.size(), 3);
    EXPECT_EQ(probe.audioTracks[0].trackName, "eng (2)");
    EXPECT_EQ(probe.audioTracks[1].trackName, "Track 2 (2)");
    EXPECT_EQ(probe.audioTracks[2].trackName, "Track 3 (1)");
    EXPECT_EQ(probe.subtitleTracks, (QList<KVSubtitleTrack>{{"subrip", "deu", 3}}));
}

TEST(KVProbeTextTest, SwapsTheSidesOfEveryVideoTrackOfARotatedFile) {
    struct Row {
        const char *line;
        bool isRotated;
    };
    const std::vector<Row> rows{
        {"      rotate          : 90", true},   {"ROTATE:-90", true},
        {"      rotate          : 900", true},  {"      rotate          : 180", false},
        {"      rotate          : 270", false},
    };
    const QString duration = "  Duration: 00:00:01.00, start: 0\n";
    for (const Row &row : rows)
        for (const QString &text : {row.line + ("\n" + duration) + videoLine + videoLine,
                                    duration + videoLine + videoLine + row.line}) {
            const auto tracks = KVProbeText::read(text, 0).videoTracks;
            ASSERT_EQ(tracks.size(), 2);
            for (const KVVideoTrack &track : tracks)
                EXPECT_EQ(track.width, row.isRotated ? 1080 : 1920) << text.toStdString();
        }
}

TEST(KVProbeTextTest, EndsTheProcessWhenTheNumberOfFramesIsNoNumber) {
    const QString text = "Duration: 00:00:01.00\nStream #0:0: Video: h264, 64x48, 1%1 fps";
    EXPECT_DEATH(KVProbeText::read(text.arg(QString(30, '0')), 0), "frames");
}

} // namespace
