#include "presets/video/base/KVSizeRestrictedVideoPreset.h"
#include "presets/video/base/KVStitchingFilter.h"
#include "support/KVTestCase.h"
#include "support/KVTestPresets.h"
#include "support/KVTestSources.h"
#include "tasks/KVHardwareAcceleration.h"
#include "util/KVPreferenceKeys.h"

#include <limits>

using namespace KVTestPresets;
using namespace KVTestSources;

namespace {

class KVVideoSizeTest : public KVTestCase {
  protected:
    void SetUp() override {
        KVHardwareAcceleration::setResult(false);
        setUsesNTSC(false);
    }

    static void setUsesNTSC(bool usesNTSC) {
        KVPreferences::shared().setBoolean(usesNTSC, KVPreferenceKeys::UsesNTSCFormat);
    }

    static QVariantMap limits(qint64 width, qint64 height, bool scalesUp = false) {
        return {{"ZRHasSizeConstrains", true},
                {"ZRMaxWidth", width},
                {"ZRMaxHeight", height},
                {"ZRAlsoScaleUp", scalesUp}};
    }
};

} // namespace

TEST_F(KVVideoSizeTest, PictureIsFittedIntoTheLimitsAndMadeEven) {
    struct Row {
        const char *presetClass;
        QVariantMap settings;
        qint64 width, height;
        KVSize want;
    };
    const Row rows[]{
        {"KVMP4Preset", {}, 1921, 1080, {1920, 1080}},
        {"KVHEVCPreset", {}, 1281, 721, {1280, 720}},
        {"KVMP4Preset", limits(1280, 720), 1920, 1080, {1280, 720}},
        {"KVMP4Preset", limits(1280, 720), 640, 480, {640, 480}},
        {"KVMP4Preset", limits(1280, 720, true), 640, 480, {960, 720}},
        {"KVMP4Preset", limits(1280, 720), 4096, 2304, {1280, 720}},
        {"KVMP4Preset", limits(1280, 720), 720, 1280, {404, 720}}, // 405 wide
        {"KVMP4Preset", limits(640, 480), 1920, 817, {640, 272}},  // 272.3 high, up to 273, down to even
        {"KVMP4Preset", limits(500, 500), 1000, 333, {500, 166}},  // 166.5 high, up to 167, down to even
        {"KVMP4Preset", {}, 5000, 2500, {4096, 2048}},
        {"KVMP4Preset", {{"ZRAlsoScaleUp", true}}, 640, 480, {2730, 2048}}, // up to the codec's limit
        {"KVHEVCPreset", {{"ZRAlsoScaleUp", true}}, 640, 480, {640, 480}},  // which this one does not have
        {"KVHEVCPreset", {}, 5000, 2500, {5000, 2500}},
        {"KVMP4Preset", limits(0, 720), 1920, 1080, {1920, 1080}}, // an empty field has no effect
        {"KVMP4Preset", limits(9000, 9000), 5000, 2500, {4096, 2048}},
        {"KVHEVCPreset", limits(1280, 720), 0, 0, {0, 0}},
        {"KVAppleTV4KPreset", {}, 7680, 4320, {3640, 2048}}, // the codec's limit is below the device's
        {"KVXboxPreset", limits(1, 1), 1920, 1080, {1280, 720}},
        {"KVPS3Preset", {}, 640, 480, {640, 480}},
    };
    for (const Row &row : rows) {
        const auto preset = make<KVVideoPreset>(row.presetClass, row.settings);
        const KVSize size = preset->size(*video({.width = row.width, .height = row.height}));
        EXPECT_EQ(size, row.want) << row.presetClass << " of " << row.width << " x " << row.height << ": "
                                  << size.width << " x " << size.height;
    }
}

TEST_F(KVVideoSizeTest, DevicesHaveOtherLimitsForMPEG4) {
    struct Row {
        const char *presetClasses;
        const char *limits;
    };
    const Row rows[]{
        {"KViPodPreset KViPodNano5GPreset", "320x240"},
        {"KViPodNanoPreset", "376x240"},
        {"KViPhonePreset", "480x320"},
        {"KViPhone4Preset KViPhone5Preset KViPhone6Preset KViPhone6SPreset KViPhone7Preset KViPad3Preset "
         "KVAppleTVPreset KVAppleTV2Preset KVAppleTV3Preset",
         "720x432"},
        {"KViPhone5SPreset KViPhone5CPreset KViPhoneSEPreset KVAppleTV4Preset KVAppleTV4KPreset "
         "KVRokuPreset",
         "640x480"},
        {"KViPadPreset", "1024x768"},
        {"KVPSPPreset", "480x272"},
    };
    for (const Row &row : rows)
        for (const QString &presetClass : QString(row.presetClasses).split(' ')) {
            QVariantMap settings = limits(1, 1); // What is stored for a device's size has no effect.
            settings.insert({{"ZRUsesH264", false}, {"ZRHasSizeConstrains", false}});
            const auto preset = make<KVSizeRestrictedVideoPreset>(presetClass, settings);
            EXPECT_TRUE(preset->hasSizeConstrains());
            EXPECT_EQ(preset->tags(), QStringList({"Video", row.limits, "MPEG4"}))
                << presetClass.toStdString();
        }
}

TEST_F(KVVideoSizeTest, TelevisionRasterFollowsTheRateAndThePreference) {
    struct Row {
        double framerate;
        bool usesNTSC;
        qint64 width, height;
        KVSize want;
        const char *lines, *perHeight, *pixel;
    };
    const Row rows[]{
        {25, false, 1920, 1080, {720, 576}, "576", "11/16", "16/11"},
        {25, true, 1440, 1080, {720, 576}, "576", "11/12", "12/11"},
        {0, false, 1920, 1080, {720, 576}, "576", "11/16", "16/11"},
        {0, true, 1920, 1080, {720, 480}, "480", "33/40", "40/33"},
        {29.97, false, 1440, 1080, {720, 480}, "480", "11/10", "10/11"},
        {29.97, false, 2538, 1080, {720, 364}, "480", "33/40", "40/33"},  // 363.1 lines
        {29.971, false, 1920, 1080, {720, 576}, "576", "11/16", "16/11"}, // the number decides, not its text
        {25, false, 1080, 1920, {304, 576}, "576", "11/12", "12/11"},     // 303.75 wide, down and up to even
        {25, false, 1500, 1000, {720, 512}, "576", "11/16", "16/11"},     // wide for the filter alone
    };
    for (const Row &row : rows) {
        setUsesNTSC(row.usesNTSC);
        const auto preset = make<KVVideoPreset>("KVDVDPreset", {{"ZRFramerate", row.framerate}});
        const auto source = video({.width = row.width, .height = row.height});
        const KVSize size = preset->size(*source);
        EXPECT_EQ(size, row.want) << row.framerate << ", " << row.width << ": " << size.width << " x "
                                  << size.height;
        const QString filter = QString("scale='w=min(720,trunc((") + row.lines + "*" + row.perHeight +
                               "*dar)/2+0.5)*2):h=min(" + row.lines + ",trunc((720*" + row.pixel +
                               "/dar)/2+0.5)*2)',pad='w=720:h=" + row.lines +
                               ":x=(ow-iw)/2:y=(oh-ih)/2',setsar='r=" + row.pixel + "'";
        expectArguments("raster", preset->sizeArguments(*source, true), {"-filter:v", filter});
    }
    const auto disc = make<KVSizeRestrictedVideoPreset>("KVDVDPreset", {{"ZRFramerate", 29.97}});
    EXPECT_EQ(disc->maxWidth(), 720);
    EXPECT_EQ(disc->maxHeight(), 480);
    const auto anySize = make<KVSizeRestrictedVideoPreset>("KVMPEG2Preset", limits(100, 100));
    EXPECT_EQ(anySize->maxWidth(), std::numeric_limits<qint64>::max());
    expectArguments("any size", anySize->sizeArguments(*video({.width = 1281, .height = 721}), true),
                    list("-s 1281x721 -aspect 1281:721"));
}

TEST_F(KVVideoSizeTest, TrackIsCopiedOnlyWithinAllLimits) {
    struct Row {
        const char *what, *presetClass;
        QVariantMap settings;
        Video source;
        bool copies, statesNoSize;
    };
    const QVariantMap still{{"KVDeinterlaceVideoTrack", true}};
    // clang-format off
    const Row rows[]{
        {"light", "KVMP4Preset", {}, {.bitrate = 2100}, true, true},
        {"heavy", "KVMP4Preset", {}, {.bitrate = 2101}, false, false},
        {"to be deinterlaced", "KVMP4Preset", still, {.bitrate = 100}, false, true},
        {"larger than the limits", "KVMP4Preset", limits(1280, 720), {.bitrate = 100}, false, false},
        {"higher alone", "KVMP4Preset", limits(1920, 720), {.bitrate = 100}, false, false},
        {"within the limits", "KVMP4Preset", limits(1920, 1080), {.bitrate = 100}, true, true},
        {"an empty field refuses", "KVMP4Preset", limits(0, 1080), {.bitrate = 100}, false, false},
        // Measured by the limits, although it would be encoded as the small picture that it is.
        {"small, as heavy as the limits allow", "KVMP4Preset", limits(1920, 1080), {.width = 320, .height = 240, .bitrate = 2100}, true, true},
        {"the same without limits", "KVMP4Preset", {}, {.width = 320, .height = 240, .bitrate = 2100}, false, false},
        {"a device's own size", "KVAppleTV3Preset", {}, {.bitrate = 2520}, true, true},
        {"too heavy for the device", "KVAppleTV3Preset", {}, {.bitrate = 2521}, false, false},
        {"too large for the device", "KViPhonePreset", {}, {.bitrate = 100}, false, false},
        {"fixed limits", "KVXboxPreset", {}, {.format = "mpeg4", .bitrate = 100}, false, false},
        {"HEVC", "KVHEVCPreset", {}, {.format = "hevc (Main)", .bitrate = 100}, true, true},
        {"HEVC in limits", "KVHEVCPreset", limits(1280, 720), {.format = "hevc (Main)", .bitrate = 100}, false, false},
        {"the rate of a disc has a name", "KVDVDPreset", {}, {.format = "mpeg2video", .width = 720, .height = 576, .bitrate = 100}, false, false},
    };
    // clang-format on
    for (const Row &row : rows) {
        const auto preset = make<KVVideoPreset>(row.presetClass, row.settings);
        const auto source = video(row.source);
        EXPECT_EQ(preset->canCopyVideoTrack(*source), row.copies) << row.what;
        EXPECT_EQ(preset->sizeArguments(*source, true).isEmpty(), row.statesNoSize) << row.what;
        EXPECT_FALSE(preset->sizeArguments(*source, false).isEmpty()) << row.what;
    }
}

TEST_F(KVVideoSizeTest, StitchingScalesAndPads) {
    struct Row {
        const char *what;
        QList<KVSize> sizes;
        KVSize target;
        bool hasAudio;
        const char *want;
    };
    // clang-format off
    const Row rows[]{
        {"pillars", {{640, 480}, {1280, 720}}, {1280, 720}, true,
         "[0:v]scale=width=960:height=720, pad=1280:720:160:0[v1]; [v1] [0:a:0] [1:v:0] [1:a:0] concat=n=2:v=1:a=1:unsafe=1 [v] [a]"},
        {"letterbox", {{2538, 1080}, {1280, 720}}, {1280, 720}, false,
         "[0:v]scale=width=1280:height=545, pad=1280:720:0:87[v1]; [v1] [1:v:0] concat=n=2:v=1:unsafe=1 [v]"},
        {"labels count what is scaled", {{1920, 1080}, {1280, 720}, {720, 1280}}, {1280, 720}, false,
         "[0:v]scale=width=1280:height=720[v1]; [2:v]scale=width=405:height=720, pad=1280:720:437:0[v2]; "
         "[v1] [1:v:0] [v2] concat=n=3:v=1:unsafe=1 [v]"},
        {"the same size needs no scaling", {{640, 480}, {640, 480}}, {640, 480}, false, "[0:v:0] [1:v:0] concat=n=2:v=1:unsafe=1 [v]"},
        {"noise of the arithmetic is no pixel", {{3600, 2700}, {700, 525}}, {700, 525}, false,
         "[0:v]scale=width=700:height=525[v1]; [v1] [1:v:0] concat=n=2:v=1:unsafe=1 [v]"},
    };
    // clang-format on
    for (const Row &row : rows)
        EXPECT_EQ(KVStitchingFilter(row.sizes, row.target, row.hasAudio), row.want) << row.what;
}
