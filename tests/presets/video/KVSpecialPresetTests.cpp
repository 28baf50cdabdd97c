#include "platform/KVScriptedQuestions.h"
#include "presets/video/variable_bitrate/KVHTTPLiveStreamingPreset.h"
#include "support/KVTestCase.h"
#include "support/KVTestPresets.h"
#include "support/KVTestSources.h"
#include "tasks/KVHardwareAcceleration.h"

#include <QFileInfo>

using namespace KVTestPresets;
using namespace KVTestSources;

namespace {

class KVSpecialPresetTest : public KVTestCase {
  protected:
    void SetUp() override { KVHardwareAcceleration::setResult(false); }
};

std::shared_ptr<KVAudioFile> sound(const QString &format, double seconds = 10) {
    auto file = std::make_shared<KVAudioFile>(QUrl::fromLocalFile("/in/song.mp3"));
    file->seconds = seconds;
    if (format.isEmpty()) return file;
    file->audioTracks.resize(1);
    file->audioTracks.first().format = format;
    return file;
}

const QString end = "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 /out/clip.";

} // namespace

TEST_F(KVSpecialPresetTest, WritesItsOwnList) {
    struct Row {
        const char *what, *presetClass;
        QVariantMap settings;
        Video source;
        QString want;
    };
    const QVariantMap crop{{"ZRCropPresetWidth", 1920}, {"ZRCropPresetHeight", 1080}};
    // clang-format off
    const Row rows[]{
        {"remux", "KVRemuxPreset", {}, {}, "-y -i /in/clip.mkv -c:v copy -c:a:0 copy -bsf:v h264_mp4toannexb -sn -f avi " + end + "avi"},
        {"the letters' case is no matter", "KVRemuxPreset", {{"ZRRemuxFormat", "matroska"}}, {.format = "H264"},
         "-y -i /in/clip.mkv -c:v copy -c:a:0 copy -bsf:v h264_mp4toannexb -sn -f matroska " + end + "mkv"},
        {"another codec", "KVRemuxPreset", {{"ZRRemuxFormat", "ipod"}}, {.format = "mpeg4"},
         "-y -i /in/clip.mkv -c:v copy -c:a:0 copy -sn -f ipod " + end + "m4v"},
        {"tracks to choose from", "KVRemuxPreset", {{"ZRRemuxFormat", "mp4"}}, {.format = "mpeg4", .audioTracks = 2},
         "-y -i /in/clip.mkv -c:v copy -c:a:0 copy -sn -f mp4 -map 0:0 -map 0:1 " + end + "mp4"},
        {"remux with sound", "KVVideoRemuxPreset", {}, {},
         "-y -i /in/clip.mkv -c:v copy -c:a:0 libmp3lame -ac:a:0 2 -b:a:0 128k -sn -f avi " + end + "avi"},
        {"with AAC", "KVVideoRemuxPreset", {{"ZRRemuxFormat", "mov"}, {"ZRRemuxAudioFormat", "aac"}, {"KVAudioTrackQuality", 3}, {"ZRAudioBitrate", 96}, {"ZRAudioChannels", 1}, {"KVSampleRate", 22050}}, {.audioTracks = 2},
         "-y -i /in/clip.mkv -c:v copy -c:a:0 aac -ac:a:0 1 -ar:a:0 22050 -aq:a:0 512 -strict -2 -b:a:0 96k -sn -f mov -map 0:0 -map 0:1 " + end + "mov"},
        {"sound kept after all", "KVVideoRemuxPreset", {{"KVAudioTrackQuality", 4}}, {}, "-y -i /in/clip.mkv -c:v copy -c:a:0 copy -sn -f avi " + end + "avi"},
        {"without sound", "KVVideoRemuxPreset", {}, {.channels = 0}, "-y -i /in/clip.mkv -c:v copy -an -sn -f avi " + end + "avi"},
        {"pad", "KVCropPreset", crop, {.width = 1280, .height = 720},
         "-y -i /in/clip.mkv -r 25.00 -vf pad=1920:1080:320:180 -b:v 5200k -c:a:0 copy " + end + "mkv"},
        {"pad by an odd rest", "KVCropPreset", crop, {.width = 1281, .height = 721},
         "-y -i /in/clip.mkv -r 25.00 -vf pad=1920:1080:319:179 -b:v 5200k -c:a:0 copy " + end + "mkv"},
        {"wider than asked for", "KVCropPreset", crop, {.width = 2000, .height = 720, .bitrate = -200, .framesPerSecond = 29.97},
         "-y -i /in/clip.mkv -r 29.97 -vf crop=1920:720:0:0 -b:v 4500k -c:a:0 copy " + end + "mkv"},
        {"crop at a place, of unknown rate", "KVCropPreset", {{"ZRCropPresetWidth", 600}, {"ZRCropPresetHeight", 2000}, {"ZRCropPresetXOffset", 100}, {"ZRCropPresetYOffset", 20}}, {.width = 1280, .height = 720, .bitrate = 0, .framesPerSecond = 0},
         "-y -i /in/clip.mkv -r -vf crop=600:700:100:20 -b:v 200k -c:a:0 copy " + end + "mkv"},
        {"clockwise", "KVTransformPreset", {}, {}, "-y -i /in/clip.mkv -vf transpose=1 -max_muxing_queue_size 40000 -c:a:0 copy /out/clip.mkv"},
        {"counterclockwise", "KVTransformPreset", {{"ZRTransformType", 1}}, {}, "-y -i /in/clip.mkv -vf transpose=2 -max_muxing_queue_size 40000 -c:a:0 copy /out/clip.mkv"},
        {"mirrored", "KVTransformPreset", {{"ZRTransformType", 2}}, {}, "-y -i /in/clip.mkv -vf hflip -max_muxing_queue_size 40000 -c:a:0 copy /out/clip.mkv"},
        {"upside down", "KVTransformPreset", {{"ZRTransformType", 3}}, {}, "-y -i /in/clip.mkv -vf vflip -max_muxing_queue_size 40000 -c:a:0 copy /out/clip.mkv"},
        {"no such transform", "KVTransformPreset", {{"ZRTransformType", 4}}, {}, "-y -i /in/clip.mkv -vf transpose=1 -max_muxing_queue_size 40000 -c:a:0 copy /out/clip.mkv"},
        {"web", "KVWebOptimization", {}, {}, "-i /in/clip.mkv -y -movflags +faststart -c:v copy -c:a:0 copy -map_chapters 0 -map_metadata 0 -max_muxing_queue_size 40000 /out/clip.mkv"},
        {"animation", "KVGIFAnimationPreset", {{"ZRHasSizeConstrains", true}, {"ZRMaxWidth", 320}, {"ZRMaxHeight", 240}}, {},
         "-y -i /in/clip.mkv -s 320x180 -aspect 320:180 -gifflags +transdiff -vf scale=-1:-1:sws_dither=ed -max_muxing_queue_size 40000 /out/clip.gif"},
        {"ringtone of a video", "KViPhoneRingtonePreset", {}, {}, "-y -i /in/clip.mkv -vn -ac 1 -ab 128k -f mp4 -acodec aac -metadata genre=Ringtone -strict -2 -max_muxing_queue_size 40000 /out/clip.m4r"},
        {"volume of a video", "KVVolumeAdjustingPreset", {{"ZRAudioVolumeDecibelsToAdd", 10}}, {},
         "-y -i /in/clip.mkv -c:v copy -af volume=+0.10dB -bufsize 8000k -aq 100 -strict -2 -max_muxing_queue_size 40000 -map_metadata 0 /out/clip.mkv"},
    };
    // clang-format on
    for (const Row &row : rows) {
        const auto preset = make(row.presetClass, row.settings);
        EXPECT_FALSE(preset->supportsStitching()) << row.what;
        expectArguments(row.what, argumentsOf(*preset, {video(row.source)}),
                        list(row.want.toUtf8().constData()));
    }
}

TEST_F(KVSpecialPresetTest, SoundIsAdjustedByItsFormatAndCutForARingtone) {
    const QString ringtone =
        "-y -i /in/song.mp3 -vn %1-ac 1 -ab 128k -f mp4 -acodec aac -metadata genre=Ringtone "
        "-strict -2 -max_muxing_queue_size 40000 /out/clip.m4r";
    const auto wanted = [](const QString &line, const char *part) {
        return list(line.arg(part).toUtf8().constData());
    };
    expectArguments("short", argumentsOf(*make("KViPhoneRingtonePreset"), {sound("mp3", 39.9)}),
                    wanted(ringtone, ""));
    expectArguments("long", argumentsOf(*make("KViPhoneRingtonePreset"), {sound("mp3", 40)}),
                    wanted(ringtone, "-t 40 "));

    const QString volume = "-y -i /in/song.mp3 -vn -af volume=+0.01dB -bufsize 8000k -aq %1 "
                           "-max_muxing_queue_size 40000 -map_metadata 0 /out/clip.mkv";
    for (const auto &[format, quality] : {std::pair("aac", "100 -strict -2"), std::pair("mp3", "2"),
                                          std::pair("aac (LC)", "100"), std::pair("", "100")})
        expectArguments(format, argumentsOf(*make("KVVolumeAdjustingPreset"), {sound(format)}),
                        wanted(volume, quality));
}

TEST_F(KVSpecialPresetTest, SoundAloneGivesThePicturePresetsNoList) {
    for (const char *presetClass : {"KVRemuxPreset", "KVVideoRemuxPreset", "KVCropPreset",
                                    "KVTransformPreset", "KVWebOptimization", "KVGIFAnimationPreset"})
        EXPECT_EQ(argumentsOf(*make(presetClass), {sound("mp3")}), QStringList()) << presetClass;
}

TEST_F(KVSpecialPresetTest, WebOptimizationRefusesWhatIsNoMP4) {
    const auto questions = std::make_shared<KVScriptedQuestions>();
    KVUserQuestion::setResponder(questions);
    const auto preset = make("KVWebOptimization");
    const auto destination = QUrl::fromLocalFile(path());
    EXPECT_FALSE(preset->taskForConversionOfFiles({video({.path = "/in/a.mov"})}, destination));
    ASSERT_EQ(questions->alerts.size(), 1u);
    const KVAlert alert = questions->alerts.front();
    EXPECT_EQ(alert.messageText, "Web Optimization preset works only on MP4 files.");
    EXPECT_EQ(alert.informativeText, "This preset moves the MooV atom to the front of the file.");
    EXPECT_EQ(alert.buttons, QStringList("OK"));

    const auto task = preset->taskForConversionOfFiles({video({.path = path("a.MP4")})}, destination);
    ASSERT_TRUE(task);
    EXPECT_EQ(task->outputURL, url("a.MP4"));
    EXPECT_EQ(questions->alerts.size(), 1u);
    KVUserQuestion::setResponder(nullptr);
}

TEST_F(KVSpecialPresetTest, SegmentedListReplacesTheContainer) {
    const QStringList arguments =
        list("-y -i a.mkv -c:v libx264 -copyts -movflags +faststart -qmin 5 -f mp4 -map 0:0")
        << path("show/film.one.mp4");
    const QString folder = path("show/film.one");
    expectArguments(
        "segments", KVHTTPLiveStreamingPreset::segmentedArguments(arguments),
        list("-y -i a.mkv -c:v libx264 -qmin 5 -map 0:0 -map 0 -f segment -bsf h264_mp4toannexb -vbsf "
             "h264_mp4toannexb -flags -global_header -segment_format mpegts -segment_list") +
            QStringList{folder + "/output.m3u8", "-segment_time", "10", "-max_muxing_queue_size", "40000",
                        folder + "/output-%03d.ts"});
    EXPECT_TRUE(QFileInfo(folder).isDir());
    EXPECT_DEATH(make("KVHTTPLiveStreamingPreset")->taskArguments(video(), url("a.mp4")), "");
}

TEST_F(KVSpecialPresetTest, WarnsOfARotationThatTheContainerCannotHold) {
    const auto source = video();
    source->selectedVideoTrack->isRotated = true;
    const QString lost = "The rotation of the video is lost, because %1 files cannot hold it.";
    const QString encoded =
        "The video track was encoded instead of copied, because MKV files cannot hold its rotation.";
    const QVariantMap copied{{"KVVideoTrackQuality", 4}};
    struct Row {
        const char *presetClass;
        QVariantMap settings;
        QStringList warnings;
    };
    const Row rows[]{
        {"KVRemuxPreset", {{"ZRRemuxFormat", "avi"}}, {lost.arg("AVI")}},
        {"KVRemuxPreset", {{"ZRRemuxFormat", "flv"}}, {lost.arg("FLV")}},
        {"KVRemuxPreset", {{"ZRRemuxFormat", "matroska"}}, {lost.arg("MKV")}},
        {"KVVideoRemuxPreset", {{"ZRRemuxFormat", "avi"}}, {lost.arg("AVI")}},
        {"KVRemuxPreset", {{"ZRRemuxFormat", "ipod"}}, {}},
        {"KVMKVPreset", copied, {encoded}},
        {"KVMKVPreset", {}, {}},
        {"KVMP4Preset", copied, {}},
        {"KVTransformPreset", copied, {}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(make(row.presetClass, row.settings)->warningsForFiles({source}), row.warnings)
            << row.presetClass;
    EXPECT_EQ(make("KVRemuxPreset")->warningsForFiles({video()}), QStringList());
}
