#include "video_info/tracks/KVAudioTrack.h"
#include "video_info/tracks/KVSubtitleTrack.h"
#include "video_info/tracks/KVVideoTrack.h"

#include "support/KVTestCase.h"

#include <vector>

namespace {

using Name = std::optional<QString>;

TEST(KVAudioTrackTest, ReadsWhatTheToolSaysOfAStream) {
    struct Row {
        const char *line;
        KVAudioTrack expected;
    };
    const std::vector<Row> rows{
        {"Stream #0:1(eng): Audio: aac (LC) (mp4a / 0x6134706D), 44100 Hz, stereo, fltp, 128 kb/s (default)",
         {128, "aac (LC) (mp4a / 0x6134706D)", 44100, 2, "eng (2)", 1}},
        {"Stream #0:0: Audio: mp3, 44100 Hz, mono, s16p, 64 kb/s", {64, "mp3", 44100, 1, {}, 0}},
        {"Stream #0:1(eng): Audio: ac3, 48000 Hz, 5.1(side), fltp, 448 kb/s",
         {448, "ac3", 48000, 6, "eng (6)", 1}},
        {"Stream #0:1[0x1100](eng): Audio: dts, 48000 Hz, 6.1, s32p, 1536 kb/s",
         {1536, "dts", 48000, 7, "eng (7)", 1}},
        {"Stream #0:12[0x1100]: Audio: mp2, 48000 Hz, Stereo, s16p, 256 KB/S",
         {256, "mp2", 48000, 2, {}, 12}},
        {"Stream #0:0: Audio: pcm_s16le, 44100 Hz, 2 channels, s16, 1411 kb/s",
         {1411, "pcm_s16le", 44100, 2, {}, 0}},
        {"Stream #0:0: Audio: pcm_s16le, 8000 Hz, 3 channels, s16", {0, "pcm_s16le", 8000, 3, {}, 0}},
        {"Stream #0:3: Audio: truehd, 48000 Hz, 8 channels, s32", {0, "truehd", 48000, 8, {}, 3}},
        {"Stream #0:0: Audio: pcm_s16le, 48000 Hz, 12 channels, s16", {0, "pcm_s16le", 48000, 12, {}, 0}},
        {"Stream #0:0: Audio: opus, 48000 Hz, 4 channels (ambisonic), fltp",
         {0, "opus", 48000, 4, {}, 0, true}},
        {"Stream #0:0: Audio: codec5.1, 48000 Hz, mono", {0, "codec5.1", 48000, 6, {}, 0}},
        {"Stream #0:0: Audio: ", {0, "", 0, 1, {}, 0}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(KVAudioTrack::fromLine(row.line), row.expected) << row.line;
    EXPECT_FALSE(KVAudioTrack::fromLine("Stream #0:0: Audio:mp3, 44100 Hz"));
}

TEST(KVVideoTrackTest, ReadsWhatTheToolSaysOfAStream) {
    struct Row {
        const char *line;
        const char *format;
        qint64 trackNumber, width, height, bitrate;
        double framesPerSecond;
    };
    const std::vector<Row> rows{
        {"Stream #0:0(und): Video: h264 (High) (avc1 / 0x31637661), yuv420p(tv, bt709), 1920x1080 [SAR 1:1 "
         "DAR "
         "16:9], 36 kb/s, 23.98 fps, 23.98 tbr, 24k tbn (default)",
         "h264 (High) (avc1 / 0x31637661)", 0, 1920, 1080, 36, 23.98},
        {"Stream #0:0(und): Video: h264, yuv420p, 720x576 [SAR 16:15 DAR 4:3], 1200 kb/s, 25 fps, 25 tbr, "
         "90k tbn",
         "h264", 0, 768, 576, 1200, 25},
        {"Stream #0:1[0x1e0]: Video: mpeg2video (Main), yuv420p(tv), 720x480, SAR 32:27 DAR 16:9, 29.97 fps, "
         "90k "
         "tbn, 59.94 tbc",
         "mpeg2video (Main)", 1, 853, 480, 0, 29.97},
        {"Stream #0:0: Video: rawvideo, 640x480, 1 fps, 25 tbr, 90k tbn", "rawvideo", 0, 640, 480, 0, 90},
        {"Stream #0:0: Video: rawvideo, 640x480, 1.99 fps, 25 tbr, 12 tbn", "rawvideo", 0, 640, 480, 0, 25},
        {"Stream #0:2: Video: mjpeg, yuvj420p(pc), 600x600 [SAR 1:1 DAR 1:1], 90k tbr, 90k tbn", "mjpeg", 2,
         600, 600, 0, 90},
        {"Stream #0:0: Video: h264, 64x48 [SAR 1:1 DAR 0:0], 25 fps, 50 tbc", "h264", 0, 64, 48, 0, 25},
        {"Stream #0:0: Video: h264, none, 60 tbc", "h264", 0, 0, 0, 0, 0},
    };
    for (const Row &row : rows) {
        const auto track = KVVideoTrack::fromLine(row.line);
        ASSERT_TRUE(track) << row.line;
        EXPECT_EQ(*track, (KVVideoTrack{.bitrate = row.bitrate,
                                        .format = row.format,
                                        .framesPerSecond = row.framesPerSecond,
                                        .height = row.height,
                                        .trackName = {},
                                        .trackNumber = row.trackNumber,
                                        .width = row.width}))
            << row.line << "\n"
            << track->description().toStdString();
    }
    EXPECT_FALSE(KVVideoTrack::fromLine("Stream #0:0: Audio: mp3, 44100 Hz, mono"));
}

TEST(KVVideoTrackTest, EndsTheProcessWhenTheDisplayWidthIsNoNumber) {
    const QString line = "Stream #0:0: Video: h264, 64x48 [SAR 1:1 DAR 1%1:1], 25 fps";
    EXPECT_DEATH(KVVideoTrack::fromLine(line.arg(QString(40, '0'))), "width");
}

TEST(KVTrackTest, DescribesItself) {
    EXPECT_EQ((KVAudioTrack{128, "aac", 44100, 2, "eng (2)", 1}.description()),
              "'eng (2)': track number 1, 2 channels, 44100 Hz, 128 kbit/s of format aac");
    EXPECT_EQ((KVAudioTrack{0, "aac", 8000, 1, {}, 0}.description()),
              "'Track': track number 0, 1 channels, 8000 Hz, 0 kbit/s of format aac");
    KVVideoTrack video{
        .format = "h264", .framesPerSecond = 29.97, .height = 48, .trackName = {}, .width = 64};
    video.numberOfFrames = 12;
    EXPECT_EQ(video.description(), "h264: track number 0, 64x48, 29.97 fps (12 frames)");
    EXPECT_EQ((KVSubtitleTrack{"subrip", "deu", 3}.description()), "'deu': track number 3 of format subrip");
    EXPECT_EQ((KVSubtitleTrack{"subrip", {}, 3}.description()), "'Track': track number 3 of format subrip");
}

} // namespace
