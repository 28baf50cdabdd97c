#include "presets/KVPresetClasses.h"
#include "support/KVTestProbe.h"
#include "support/KVVideoConversionTestCase.h"

#include <functional>

namespace {

using KVEveryVideoPresetTest = KVVideoConversionTestCase;

/// What a clip of 640 x 360 at 25 frames per second with stereo sound becomes.
struct Row {
    const char *presetClass;
    const char *container; ///< As the tool names it, or the beginning of it.
    const char *codecs;
    int width, height;
    QVariantMap settings = {};
    const char *what = presetClass;
};

// clang-format off
const Row rows[]{
    {"KVMP4Preset",               "mov,mp4",       "h264 aac",        640, 360},
    {"KVMP4MPEG4BasedPreset",     "mov,mp4",       "mpeg4 mp3",       640, 360},
    {"KVMKVPreset",               "matroska,webm", "h264 aac",        640, 360},
    {"KVHEVCPreset",              "mov,mp4",       "hevc aac",        640, 360},
    {"KVProResPreset",            "mov,mp4",       "prores aac",      640, 360},
    {"KVTheoraPreset",            "ogg",           "theora vorbis",   640, 360},
    {"KVWebMPreset",              "matroska,webm", "vp8 vorbis",      640, 360},
    {"KVWMVPreset",               "asf",           "wmv2 wmav2",      640, 360},
    {"KVFLVPreset",               "flv",           "flv1 mp3",        640, 360},
    {"KVDivXPreset",              "avi",           "mpeg4 mp3",       640, 360},
    {"KVXvidPreset",              "avi",           "mpeg4 mp3",       640, 360},
    {"KVMPEG1Preset",             "mpeg",          "mpeg1video mp2",  640, 360},
    {"KVMPEG2Preset",             "mpeg",          "mpeg2video ac3",  640, 360},
    {"KVPS3Preset",               "mov,mp4",       "h264 aac",        640, 360},
    {"KVXboxPreset",              "mov,mp4",       "mpeg4 aac",       640, 360},
    {"KVHTTPLiveStreamingPreset", "mov,mp4",       "h264 aac",        640, 360},
    {"KViPodPreset",              "mov,mp4",       "h264 aac",        320, 180},
    {"KViPodNanoPreset",          "mov,mp4",       "h264 aac",        376, 212},
    {"KViPodNano5GPreset",        "mov,mp4",       "h264 aac",        320, 180},
    {"KViPhonePreset",            "mov,mp4",       "h264 aac",        480, 270},
    {"KViPhone4Preset",           "mov,mp4",       "h264 aac",        640, 360},
    {"KViPhone5Preset",           "mov,mp4",       "h264 aac",        640, 360},
    {"KViPhone5SPreset",          "mov,mp4",       "h264 aac",        640, 360},
    {"KViPhone5CPreset",          "mov,mp4",       "h264 aac",        640, 360},
    {"KViPhoneSEPreset",          "mov,mp4",       "h264 aac",        640, 360},
    {"KViPhone6Preset",           "mov,mp4",       "h264 aac",        640, 360},
    {"KViPhone6SPreset",          "mov,mp4",       "h264 aac",        640, 360},
    {"KViPhone7Preset",           "mov,mp4",       "h264 aac",        640, 360},
    {"KViPadPreset",              "mov,mp4",       "h264 aac",        640, 360},
    {"KViPad3Preset",             "mov,mp4",       "h264 aac",        640, 360},
    {"KVAppleTVPreset",           "mov,mp4",       "h264 aac",        640, 360},
    {"KVAppleTV2Preset",          "mov,mp4",       "h264 aac",        640, 360},
    {"KVAppleTV3Preset",          "mov,mp4",       "h264 aac",        640, 360},
    {"KVAppleTV4Preset",          "mov,mp4",       "h264 aac",        640, 360},
    {"KVAppleTV4KPreset",         "mov,mp4",       "h264 aac",        640, 360},
    {"KVRokuPreset",              "mov,mp4",       "h264 aac",        640, 360},
    {"KVPSPPreset",               "mov,mp4",       "h264 aac",        480, 270},
    {"KVPSPPreset",               "mov,mp4",       "mpeg4 mp3",       480, 270, {{"ZRUsesH264", false}}, "KVPSPPreset without H.264"},
    {"KVRemuxPreset",             "avi",           "mpeg4 aac",       640, 360},
    {"KVVideoRemuxPreset",        "avi",           "mpeg4 mp3",       640, 360},
    {"KVCropPreset",              "mov,mp4",       "h264 aac",        480, 300, {{"ZRCropPresetXOffset", 80}, {"ZRCropPresetYOffset", 30}, {"ZRCropPresetWidth", 480}, {"ZRCropPresetHeight", 300}}},
    {"KVWebOptimization",         "mov,mp4",       "mpeg4 aac",       640, 360},
    {"KVGIFAnimationPreset",      "gif",           "gif",             640, 360},
    {"KVVolumeAdjustingPreset",   "mov,mp4",       "mpeg4 aac",       640, 360},
};
// clang-format on

} // namespace

TEST_F(KVEveryVideoPresetTest, MakesOfOneClipWhatItSays) {
    const auto source = probed(clip("clip.mp4", "640x360"));
    ASSERT_TRUE(source);
    const auto sourceOf = [&](const Row &) { return source; };
    convertEach(rows, sourceOf, [](const Row &row, const QString &output) {
        const auto found = KVTestProbe::probe(output);
        EXPECT_TRUE(found.container.startsWith(row.container)) << found.container.toStdString();
        QStringList codecs = found.codecs, wanted = QString(row.codecs).split(' ');
        codecs.removeAll("dvd_nav_packet");
        codecs.sort(); // Some containers put the sound first.
        wanted.sort();
        EXPECT_EQ(codecs, wanted);
        EXPECT_EQ(found.width, row.width);
        EXPECT_EQ(found.height, row.height);
        EXPECT_NEAR(found.framesPerSecond, 25, 0.01);
        EXPECT_EQ(found.channels, found.codecs == QStringList("gif") ? 0 : 2);
        EXPECT_NEAR(found.seconds, seconds, 0.2);
        EXPECT_EQ(KVTestProbe::flawOfSquare(KVTestProbe::middleFrame(output, seconds)), "");
    });
}

TEST_F(KVEveryVideoPresetTest, KeepsTheRateOfThePictureUnlessItHasItsOwn) {
    const auto source = probed(clip("fast.mp4", "160x120", {"-r", "50"}));
    const auto slower = probed(clip("slower.mp4", "160x120", {"-r", "30000/1001"}));
    struct RateRow {
        const char *what;
        std::shared_ptr<KVVideoFile> source;
        const char *presetClass;
        double framesPerSecond;
        QVariantMap settings = {};
    };
    const RateRow rateRows[]{
        {"50", source, "KVMP4Preset", 50},
        {"50, on a device", source, "KViPadPreset", 50},
        {"50, remuxed", source, "KVRemuxPreset", 50},
        {"50 to 29.97", source, "KVMKVPreset", 29.97, {{"ZRFramerate", 29.97}}},
        {"50 on television", source, "KVMPEG2Preset", 25},
        {"29.97", slower, "KVWMVPreset", 29.97},
        {"29.97 in Europe", slower, "KVMPEG1Preset", 25},
    };
    convertEach(rateRows, std::mem_fn(&RateRow::source), [](const RateRow &row, const QString &output) {
        const auto found = KVTestProbe::probe(output);
        EXPECT_NEAR(found.framesPerSecond, row.framesPerSecond, 0.01);
        EXPECT_NEAR(found.seconds, seconds, 0.2);
    });
}

TEST_F(KVEveryVideoPresetTest, TableAboveNamesEveryVideoPreset) {
    QStringList missing;
    for (const KVPresetClass &presetClass : KVPresetClasses::videoPresetClasses()) {
        const QString name = QString::fromUtf8(presetClass.name.data(), qsizetype(presetClass.name.size()));
        if (!presetClass.isAbstractPreset() &&
            std::ranges::none_of(rows, [&](const Row &row) { return name == row.presetClass; }))
            missing << name;
    }
    // Turned pictures, discs and sound have tests of their own.
    EXPECT_EQ(missing, QStringList({"KVDVDPreset", "KVTransformPreset", "KViPhoneRingtonePreset"}));
}
