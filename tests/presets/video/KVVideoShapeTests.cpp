#include "support/KVTestMedia.h"
#include "support/KVTestProbe.h"
#include "support/KVVideoConversionTestCase.h"

using KVTestPresets::make;

namespace {

class KVVideoShapeTest : public KVVideoConversionTestCase {
  protected:
    /// The clip with the options of a stream copy, such as metadata.
    QString remade(const QString &source, const QString &name, const QStringList &options) const {
        const QString target = path(name);
        KVTestMedia::make(QStringList{"-i", source} + options + QStringList{target});
        return target;
    }

    QString anamorphic(const QString &name, const QString &shown, const QString &shape) const {
        return clip(name, shown,
                    {"-vf", "scale=720:576,setsar=" + shape, "-c:v", "mpeg2video", "-c:a", "mp2"});
    }
};

} // namespace

TEST_F(KVVideoShapeTest, PictureStaysUprightAndUnstretched) {
    const QString portrait = clip("portrait.mp4", "360x640");
    const QString lying = clip("lying.mov", "360x640", {"-vf", "transpose=1"});
    const QString upsideDown = clip("down.mov", "640x360", {"-vf", "hflip,vflip"});
    const QString light =
        clip("light.mov", "360x640", {"-vf", "transpose=1", "-c:v", "libx264", "-b:v", "200k"});
    const QString upsideDownLight =
        clip("downlight.mov", "640x360", {"-vf", "hflip,vflip", "-c:v", "libx264", "-b:v", "200k"});
    const QString odd =
        clip("odd.mkv", "641x361", {"-pix_fmt", "yuv444p", "-c:v", "libx264", "-preset", "ultrafast"});
    const auto turned = [this](const QString &source, const QString &name, const char *degrees) {
        return remade(source, name, {"-c", "copy", "-metadata:s:v", QString("rotate=%1").arg(degrees)});
    };
    const QString lyingOtherwise = clip("otherwise.mov", "360x640", {"-vf", "transpose=2"});
    const QString rotated = turned(lying, "rotated.mov", "90");
    const QString rotatedLight = turned(light, "rotatedlight.mov", "90");
    const QString television = anamorphic("television.mpg", "768x576", "16/15");
    const QString wide = anamorphic("wide.mpg", "1024x576", "64/45");

    struct Row {
        const char *what;
        QString source;
        const char *presetClass;
        int width, height; // as stored
        QVariantMap settings = {};
    };
    const QVariantMap copied{{"KVVideoTrackQuality", 4}};
    // clang-format off
    const Row rows[]{
        {"portrait",                portrait,     "KVMP4Preset",   360, 640},
        {"portrait on a device",    portrait,     "KViPhonePreset", 180, 320},
        {"portrait as WMV",         portrait,     "KVWMVPreset",   360, 640},
        {"turned",                  rotated,      "KVMP4Preset",   360, 640},
        {"turned the other way",    turned(lyingOtherwise, "270.mov", "270"), "KVMP4Preset", 360, 640},
        {"turned on a device",      rotated,      "KViPodPreset",  134, 240},
        {"turned as AVI",           rotated,      "KVDivXPreset",  360, 640},
        {"turned and light, as MKV", rotatedLight, "KVMKVPreset", 360, 640},
        {"upside down, as MKV",     turned(upsideDownLight, "180.mov", "180"), "KVMKVPreset", 640, 360},
        {"turned, a copy as MKV",   rotatedLight, "KVMKVPreset",   360, 640, copied},
        {"turned, as animation",    rotated,      "KVGIFAnimationPreset", 360, 640},
        {"turned, in limits",       rotated,      "KVMKVPreset",   90, 160, {{"ZRHasSizeConstrains", true}, {"ZRMaxWidth", 200}, {"ZRMaxHeight", 160}}},
        {"turned, copied",          rotatedLight, "KVMP4Preset",   640, 360},
        {"turned, told to copy",    rotated,      "KVMP4Preset",   640, 360, copied},
        {"turned, remuxed",         rotated,      "KVRemuxPreset", 640, 360, {{"ZRRemuxFormat", "mov"}}},
        {"half a turn",             turned(upsideDown, "half.mov", "180"), "KVMP4Preset", 640, 360},
        {"pixels of television",    television,   "KVMP4Preset",   768, 576},
        {"on a device",             television,   "KViPhonePreset", 426, 320},
        {"as WMV",                  television,   "KVWMVPreset",   768, 576},
        {"widescreen",              wide,         "KVMP4Preset",   1024, 576},
        {"widescreen as FLV",       wide,         "KVFLVPreset",   1024, 576},
        {"widescreen on a device",  wide,         "KVPSPPreset",   480, 270},
        {"widescreen, copied",      wide,         "KVMKVPreset",   720, 576, copied},
        {"widescreen, deinterlaced", wide,        "KVXvidPreset",  1024, 576, {{"KVDeinterlaceVideoTrack", true}}},
        {"odd",                     odd,          "KVMP4Preset",   640, 360},
        {"odd as WMV",              odd,          "KVWMVPreset",   640, 360},
        {"odd as HEVC",             odd,          "KVHEVCPreset",  640, 360},
        {"odd, scaled up",          odd,          "KVMP4Preset",   800, 450, {{"ZRHasSizeConstrains", true}, {"ZRMaxWidth", 800}, {"ZRMaxHeight", 600}, {"ZRAlsoScaleUp", true}}},
    };
    // clang-format on
    const auto sourceOf = [](const Row &row) { return probed(row.source); };
    convertEach(rows, sourceOf, [](const Row &row, const QString &output) {
        const auto found = KVTestProbe::probe(output);
        EXPECT_EQ(found.width, row.width);
        EXPECT_EQ(found.height, row.height);
        EXPECT_NEAR(found.seconds, seconds, 0.2);
        EXPECT_EQ(KVTestProbe::flawOfSquare(KVTestProbe::middleFrame(output, seconds)), "");
    });
}

TEST_F(KVVideoShapeTest, TransformTurnsAndMirrors) {
    const auto source = probed(clip("clip.mp4", "320x240"));
    const char *quarters[]{"brwg", "gwrb", "grwb", "bwrg"};
    std::vector<Job> jobs;
    for (int type = 0; type < 4; ++type)
        jobs.push_back({quarters[type], make("KVTransformPreset", {{"ZRTransformType", type}}), {source}});
    for (const auto &[label, output] : convert(jobs))
        EXPECT_EQ(KVTestProbe::flawOfSquare(KVTestProbe::middleFrame(output, seconds)),
                  "its quarters are " + label)
            << failureOf(label).toStdString();
}

TEST_F(KVVideoShapeTest, DiscKeepsTheWholePictureInTheRaster) {
    struct Row {
        const char *what;
        QString size;
        double framerate;
        int lines;
    };
    const Row rows[]{{"widescreen", "640x360", 25, 576}, {"old television", "640x480", 25, 576},
                     {"cinema", "848x360", 29.97, 480},  {"NTSC", "640x480", 29.97, 480},
                     {"portrait", "360x640", 25, 576},   {"small", "64x48", 25, 576}};
    for (const Row &row : rows) {
        const auto preset = make("KVDVDPreset", {{"ZRFramerate", row.framerate}});
        const auto source = probed(clip(QString(row.what) + ".mp4", row.size));
        const auto task = preset->taskForConversionOfFiles({source}, QUrl::fromLocalFile(path()));
        ASSERT_TRUE(task) << row.what;
        const QByteArray said = task->task->launchAndGetAllOutputData();
        const QString output = task->outputURL.toLocalFile();
        const auto found = KVTestProbe::probe(output);
        EXPECT_EQ(found.width, 720) << row.what << said.toStdString();
        EXPECT_EQ(found.height, row.lines) << row.what;
        EXPECT_NEAR(found.framesPerSecond, row.framerate, 0.01) << row.what;
        EXPECT_TRUE(found.codecs.contains("mpeg2video") && found.codecs.contains("ac3")) << row.what;
        EXPECT_NEAR(found.seconds, seconds, 0.2) << row.what;
        EXPECT_EQ(KVTestProbe::flawOfSquare(KVTestProbe::middleFrame(output, seconds)), "") << row.what;
    }
}

TEST_F(KVVideoShapeTest, FilesOfThreeShapesAreStitched) {
    const auto a = probed(clip("a.mp4", "640x360"));
    const auto b = probed(clip("b.mov", "360x640", {"-ac", "1", "-ar", "22050"}));
    const auto c = probed(anamorphic("c.mpg", "768x576", "16/15"));
    const auto outputs =
        convert({{"MP4", make("KVMP4Preset"), {a, b, c}},
                 {"WMV", make("KVWMVPreset"), {c, b, a}},
                 {"MKV told to copy", make("KVMKVPreset", {{"KVVideoTrackQuality", 4}}), {b, a, c}}});
    for (const auto &[label, output] : outputs) {
        ASSERT_FALSE(output.isEmpty()) << label.toStdString() << failureOf(label).toStdString();
        const auto found = KVTestProbe::probe(output);
        EXPECT_EQ(found.width, 640) << label.toStdString();
        EXPECT_EQ(found.height, 360) << label.toStdString();
        EXPECT_EQ(found.audioStreams, 1) << label.toStdString();
        EXPECT_NEAR(found.seconds, 3 * seconds, 0.4) << label.toStdString();
        const auto sound = KVTestProbe::loudness(output, 3 * seconds);
        EXPECT_TRUE(std::ranges::all_of(sound, [](int peak) { return peak > 1000; }))
            << label.toStdString() << testing::PrintToString(sound);
        for (const double at : {0.5, 1.5, 2.5})
            EXPECT_EQ(KVTestProbe::flawOfSquare(KVTestProbe::middleFrame(output, 2 * at * seconds)), "")
                << label.toStdString() << at;
    }
}
