#include "presets/formats/video_track/static_bitrate/KVFLVFormat.h"
#include "presets/formats/video_track/static_bitrate/KVHEVCFormat.h"
#include "presets/formats/video_track/static_bitrate/KVMPEG1Format.h"
#include "presets/formats/video_track/static_bitrate/KVMPEG2Format.h"
#include "presets/formats/video_track/static_bitrate/KVMPEG4Format.h"
#include "presets/formats/video_track/static_bitrate/KVProResFormat.h"
#include "presets/formats/video_track/static_bitrate/KVTheoraFormat.h"
#include "presets/formats/video_track/static_bitrate/KVVPXFormat.h"
#include "presets/formats/video_track/static_bitrate/KVWMVFormat.h"
#include "presets/formats/video_track/variable_bitrate/KVH264Format.h"
#include "support/KVTestCase.h"
#include "support/KVTestSources.h"
#include "tasks/KVHardwareAcceleration.h"
#include "util/KVPreferenceKeys.h"

using namespace KVTestSources;
using enum KVTrackQualitySetting;

namespace {

class KVVideoFormatTest : public KVTestCase {
  protected:
    void SetUp() override { KVHardwareAcceleration::setResult(false); }

    static void setUsesNTSC(bool usesNTSC) {
        KVPreferences::shared().setBoolean(usesNTSC, KVPreferenceKeys::UsesNTSCFormat);
    }
};

template <class Format>
std::unique_ptr<KVVideoFormat> make() {
    return std::make_unique<Format>();
}

struct CodecRow {
    const char *name;
    std::unique_ptr<KVVideoFormat> (*make)();
    const char *copied;    // a source's format that may pass
    const char *notCopied; // one that is near and may not
    const char *rates; // low, medium, high and kept quality of a picture that takes a quarter of the range
    const char *maxRates = "";
};

// clang-format off
const CodecRow codecRows[]{
    {"H.264", make<KVH264Format>, "h264 (High) (avc1 / 0x31637661)", "H264", "1000k 1226k 1550k 2400k", "1388k 1676k 2250k 3200k"},
    {"HEVC", make<KVHEVCFormat>, "hevc (Main)", "h265", "1276k 1500k 1726k 1950k"},
    {"ProRes", make<KVProResFormat>, "prores", "prores (HQ)", "45000k 65000k 102500k 160000k"},
    {"MPEG-1", make<KVMPEG1Format>, "mpeg1video", "mpeg1video (x)", "2300k 3000k 3900k 5000k"},
    {"MPEG-2", make<KVMPEG2Format>, "mpeg2video", "mpeg2video (Main)", "2400k 3200k 3900k 5000k"},
    {"MPEG-4", make<KVMPEG4Format>, "mpeg4", "mpeg4 (Simple)", "1900k 2550k 3000k 3450k"},
    {"FLV", make<KVFLVFormat>, "flv", "flv1", "1400k 2150k 2700k 3400k"},
    {"Theora", make<KVTheoraFormat>, "theora", "theora (x)", "1150k 1900k 2450k 2900k"},
    {"VP8", make<KVVPXFormat>, "vp8", "vp80", "1150k 1900k 2450k 2900k"},
    {"WMV", make<KVWMVFormat>, "wmv3 (Main)", "vc1", "1150k 1700k 2150k 2500k"},
};
// clang-format on

} // namespace

TEST_F(KVVideoFormatTest, EveryCodecHasItsRatesAndKnowsItsOwnTracks) {
    const auto source = video({.width = 1280, .height = 720});
    for (const CodecRow &row : codecRows) {
        const auto format = row.make();
        EXPECT_TRUE(format->canCopyVideoTrackOfFormat(row.copied)) << row.name;
        EXPECT_FALSE(format->canCopyVideoTrackOfFormat(row.notCopied)) << row.name;
        QStringList rates, maxRates;
        for (const auto quality : {low, medium, high, keepOriginal}) {
            const QStringList arguments = format->arguments(source, quality);
            rates << arguments.value(arguments.indexOf("-b:v") + 1);
            if (const auto at = arguments.indexOf("-maxrate"); at >= 0) maxRates << arguments.value(at + 1);
        }
        EXPECT_EQ(rates.join(' '), row.rates) << row.name;
        EXPECT_EQ(maxRates.join(' '), row.maxRates) << row.name;
    }
}

TEST_F(KVVideoFormatTest, BitrateFollowsThePictureSize) {
    struct Row {
        qint64 width, height;
        const char *medium; // of 500 + 4000
    };
    const Row rows[]{{100, 199, "500k"},    {100, 200, "580k"},    {320, 240, "580k"},
                     {320, 250, "700k"},    {720, 361, "700k"},    {720, 480, "900k"},
                     {750, 600, "1500k"},   {1280, 720, "1500k"},  {1920, 1080, "2900k"},
                     {2000, 1200, "4500k"}, {4000, 2000, "4500k"}, {7680, 4320, "4500k"}};
    KVHEVCFormat format;
    for (const Row &row : rows) {
        const auto source = video({.width = row.width, .height = row.height});
        EXPECT_EQ(format.arguments(source, medium).value(3), row.medium) << row.width << " x " << row.height;
    }
    format.targetResolution = KVVideoFormat::Resolution{320, 240};
    EXPECT_EQ(format.arguments(video(), medium).value(3), "580k")
        << "the output's size counts, not the source's";
    format.targetResolution = KVVideoFormat::Resolution::unlimited();
    EXPECT_EQ(format.arguments(video(), medium).value(3), "4500k");
}

TEST_F(KVVideoFormatTest, CustomRateIsTheUsersNumberRoundedUpToEven) {
    KVHEVCFormat hevc;
    hevc.bitrate = 1501;
    EXPECT_EQ(hevc.arguments(video(), custom).value(3), "1502k");
    hevc.bitrate = std::numeric_limits<qint64>::max();
    EXPECT_EQ(hevc.arguments(video(), custom).value(3), "9223372036854775807k")
        << "there is no even one above";
    KVH264Format device;
    device.bitrateMultiplier = 0.75;
    device.bitrate = 1000;
    device.maxBitrate = 1001;
    expectArguments("multiplied", device.arguments(video(), custom).mid(2, 4),
                    list("-b:v 750k -maxrate 750k"));
}

TEST_F(KVVideoFormatTest, FrameRateIsWrittenUnlessTheSourceIsFollowed) {
    KVHEVCFormat format;
    const auto source = video();
    EXPECT_EQ(format.framerateText(*source, medium), std::nullopt);
    format.framerate = 29.97;
    for (const auto quality : {low, medium, high, custom})
        EXPECT_EQ(format.framerateText(*source, quality), "29.97");
    EXPECT_EQ(format.framerateText(*source, keepOriginal), std::nullopt);
    format.framerate = 25;
    expectArguments("place", format.arguments(source, medium).mid(0, 5), list("-c:v libx265 -r 25.00 -b:v"));
}

TEST_F(KVVideoFormatTest, MPEGTakesTheRateOfATelevisionStandard) {
    struct Row {
        double framerate;
        KVTrackQualitySetting quality;
        bool usesNTSC;
        const char *mpeg1, *mpeg2;
    };
    const Row rows[]{
        {0, medium, false, "pal", "pal"},         {0, medium, true, "ntsc", "ntsc"},
        {0, keepOriginal, false, "pal", "pal"},   {25, medium, true, "25.00", "pal"},
        {25, keepOriginal, true, "ntsc", "pal"},  {29.97, medium, false, "29.97", "ntsc"},
        {29.971, medium, false, "29.97", "ntsc"}, {29.97, keepOriginal, false, "pal", "ntsc"},
        {30, medium, false, "pal", "pal"},        {30, medium, true, "ntsc", "ntsc"},
    };
    KVMPEG1Format mpeg1;
    KVMPEG2Format mpeg2;
    mpeg2.isDVDTarget = true;
    for (const Row &row : rows) {
        setUsesNTSC(row.usesNTSC);
        mpeg1.framerate = mpeg2.framerate = row.framerate;
        EXPECT_EQ(mpeg1.framerateText(*video(), row.quality), row.mpeg1) << row.framerate << row.usesNTSC;
        EXPECT_EQ(mpeg2.framerateText(*video(), row.quality), row.mpeg2) << row.framerate << row.usesNTSC;
        EXPECT_EQ(mpeg2.additionalArguments(*video(), row.quality).value(3), QString(row.mpeg2) + "-dvd");
    }
}

TEST_F(KVVideoFormatTest, CopiesOnlyWhatEncodingWouldNotChange) {
    struct Row {
        const char *what;
        Video source;
        KVTrackQualitySetting quality;
        double framerate;
        bool want;
    };
    const Row rows[]{
        {"light enough", {.bitrate = 2100}, medium, 0, true},
        {"heavier than the result", {.bitrate = 2101}, medium, 0, false},
        {"any track when told to copy", {.format = "vp9", .width = 3, .bitrate = 9999}, copy, 0, true},
        {"custom numbers ask for encoding", {.bitrate = 100}, custom, 0, false},
        {"another codec", {.format = "hevc", .bitrate = 100}, medium, 0, false},
        {"odd width", {.width = 1921, .bitrate = 100}, medium, 0, false},
        {"odd height", {.height = 1079, .bitrate = 100}, medium, 0, false},
        {"another rate", {.bitrate = 100}, medium, 24, false},
        {"the same rate", {.bitrate = 100, .framesPerSecond = 29.97}, medium, 29.97, true},
        {"nearly the same rate", {.bitrate = 100, .framesPerSecond = 29.979}, medium, 29.97, true},
        {"kept rate", {.bitrate = 100, .framesPerSecond = 29.97}, keepOriginal, 25, true},
    };
    for (const Row &row : rows) {
        KVH264Format format;
        format.bitrate = 9000;
        format.framerate = row.framerate;
        EXPECT_EQ(format.canCopyVideoTrack(*video(row.source), row.quality), row.want) << row.what;
    }
    const auto withSubtitles = video({.bitrate = 100});
    withSubtitles->subtitlesFileURL = url("a.srt");
    EXPECT_FALSE(KVH264Format().canCopyVideoTrack(*withSubtitles, medium));
    const auto soundOnly = video();
    soundOnly->selectedVideoTrack.reset();
    EXPECT_FALSE(KVH264Format().canCopyVideoTrack(*soundOnly, medium));
    // The name of a standard is no rate that a source could have.
    EXPECT_FALSE(KVMPEG2Format().canCopyVideoTrack(*video({.format = "mpeg2video", .bitrate = 100}), high));
}

TEST_F(KVVideoFormatTest, HardwareEncoderTakesALevelOf30AndMore) {
    KVHardwareAcceleration::setResult(true);
    KVH264Format format;
    format.level = 29;
    EXPECT_EQ(format.codec(), "libx264");
    format.level = 30;
    EXPECT_EQ(format.codec(), "h264_videotoolbox");
    format.isHardwareAccelerationEnabled = false;
    EXPECT_EQ(format.codec(), "libx264");
    KVHardwareAcceleration::setResult(false);
    format.isHardwareAccelerationEnabled = true;
    EXPECT_EQ(format.codec(), "libx264");
}

using KVVideoFormatDeathTest = KVVideoFormatTest;

TEST_F(KVVideoFormatDeathTest, ComputingWithCopyIsAProgrammingError) {
    EXPECT_DEATH(KVHEVCFormat().bitrateRange(copy), "KVUnknownQualityException: -bitrateRangeForQuality");
    EXPECT_DEATH(KVH264Format().maxBitrateRange(copy),
                 "KVUnknownQualityException: -maxBitrateRangeForQuality");
    EXPECT_DEATH(KVHEVCFormat().framerateText(*video(), copy), "ERROR: KVCopyTrack branch");
    const auto soundOnly = video();
    soundOnly->selectedVideoTrack.reset();
    EXPECT_DEATH(KVHEVCFormat().sizeType(*soundOnly), "Fetching size type for a file with no video track. ");
}
