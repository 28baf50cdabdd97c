#include "presets/video/base/KVVideoPreset.h"
#include "support/KVTestCase.h"
#include "support/KVTestPresets.h"
#include "support/KVTestSources.h"
#include "tasks/KVHardwareAcceleration.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVThreadCount.h"

using namespace KVTestPresets;
using namespace KVTestSources;

namespace {

class KVVideoArgumentsTest : public KVTestCase {
  protected:
    void SetUp() override {
        KVHardwareAcceleration::setResult(false);
        KVPreferences::shared().setBoolean(false, KVPreferenceKeys::UsesNTSCFormat);
    }

    /// The elements of a line with its marks filled in:
    /// {threads 16}, {x264 QMIN QMAX METHOD RANGE LEVEL PROFILE}, {aac KBIT}, {end EXTENSION}.
    static QStringList expand(const QString &line) {
        QString text = line;
        static const QRegularExpression mark("\\{(\\w+) ?([^}]*)\\}");
        for (auto match = mark.match(text); match.hasMatch(); match = mark.match(text))
            text.replace(match.capturedStart(), match.capturedLength(),
                         expansion(match.captured(1), match.captured(2).split(' ')));
        return list(text.toUtf8().constData());
    }

    static QString expansion(const QString &mark, const QStringList &values) {
        if (mark == "threads") return "-threads " + QString::number(KVThreadCount(values.first().toInt(), 2));
        if (mark == "aac") return "-c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 -b:a:0 " + values.first();
        if (mark == "end")
            return "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 /out/clip." + values.first();
        return QString("-allow_sw 1 -copyts -movflags +faststart -qmin %1 -qmax %2 -flags +loop -g 250 "
                       "-i_qfactor 0.71 -refs 1 -trellis 2 -coder 0 -bf 0 -bt 256k -keyint_min 250 "
                       "-sc_threshold 40 "
                       "-me_method %3 -me_range %4 -level %5 -profile %6")
            .arg(values.value(0), values.value(1), values.value(2), values.value(3), values.value(4),
                 values.value(5));
    }
};

struct Row {
    const char *what;
    const char *presetClass;
    QVariantMap settings;
    Video source;
    const char *want;
};

constexpr int copy = 4;

} // namespace

TEST_F(KVVideoArgumentsTest, EveryPresetWritesItsList) {
    struct PresetRow {
        const char *presetClass;
        const char *want; // between the input and the mapping
        const char *end;
        const char *defaults; // the bitrates of custom quality where the user gives none
    };
    const auto valueBehind = [](const QStringList &arguments, const char *option) {
        return arguments.contains(option) ? QStringList(arguments.value(arguments.indexOf(option) + 1))
                                          : QStringList();
    };
    // clang-format off
    const PresetRow rows[]{
        {"KVMP4Preset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2100k -maxrate 2900k -bufsize 4M {x264 5 31 umh 7 51 high} {aac 128k} -sn -f mp4", "mp4", "800k 1200k 128k"},
        {"KVMKVPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2100k -maxrate 2900k -bufsize 4M {x264 5 31 umh 7 51 high} {aac 128k} -sn -f matroska", "mkv", "800k 1200k 128k"},
        {"KVHTTPLiveStreamingPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2100k -maxrate 2900k -bufsize 4M {x264 5 31 umh 7 51 baseline} {aac 128k} -sn -f mp4", "mp4", "800k 1200k 128k"},
        {"KVMP4MPEG4BasedPreset", "-s 1920x1080 -aspect 1920:1080 {threads 6} -c:v mpeg4 -b:v 5000k -fflags +igndts -g 300 -q 1 -async 50 -c:a:0 libmp3lame -ac:a:0 2 -ar:a:0 44100 -b:a:0 128k -sn -f mp4", "mp4", "800k 128k"},
        {"KVHEVCPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx265 -b:v 2900k -preset medium -tag:v hvc1 {aac 128k} -sn -f mov", "mov", "1000k 128k"},
        {"KVProResPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v prores -b:v 128000k {aac 128k} -sn", "mov", "50000k 256k"},
        {"KVTheoraPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libtheora -b:v 3300k -c:a:0 libvorbis -ac:a:0 2 -b:a:0 128k -sn", "ogg", "1200k 128k"},
        {"KVWebMPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libvpx -b:v 3300k -qmin 20 -qmax 48 -rc_lookahead 20 -c:a:0 libvorbis -ac:a:0 2 -b:a:0 128k -sn", "webm", "1200k 128k"},
        {"KVWMVPreset", "-s 1920x1080 -aspect 1920:1080 -c:v wmv2 -b:v 3100k -c:a:0 wmav2 -ac:a:0 2 -b:a:0 128k -sn", "wmv", "600k 128k"},
        {"KVFLVPreset", "-s 1920x1080 -aspect 1920:1080 -c:v flv -b:v 3900k -g 200 -qmin 5 -async 50 -c:a:0 libmp3lame -ac:a:0 2 -ar:a:0 44100 -b:a:0 128k -sn -f flv", "flv", "750k 128k"},
        {"KVDivXPreset", "-s 1920x1080 -aspect 1920:1080 {threads 6} -c:v mpeg4 -b:v 5000k -fflags +igndts -g 300 -q 1 -async 50 -vtag DX50 -c:a:0 libmp3lame -ac:a:0 2 -b:a:0 128k -sn", "avi", "1024k 128k"},
        {"KVXvidPreset", "-s 1920x1080 -aspect 1920:1080 {threads 6} -c:v mpeg4 -b:v 5000k -fflags +igndts -g 300 -q 1 -async 50 -vtag XVID -c:a:0 libmp3lame -ac:a:0 2 -b:a:0 128k -sn", "avi", "1024k 128k"},
        {"KVMPEG1Preset", "-s 1920x1080 -aspect 1920:1080 -c:v mpeg1video -r pal -b:v 5800k -c:a:0 mp2 -ac:a:0 2 -b:a:0 128k -sn", "mpeg", "1000k 128k"},
        {"KVMPEG2Preset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v mpeg2video -r pal -b:v 6000k -ps 2000000000 -c:a:0 ac3 -ac:a:0 2 -b:a:0 128k -sn -f dvd", "vob", "7500k 192k"},
        {"KVDVDPreset", "-filter:v \"scale='w=min(720,trunc((576*11/16*dar)/2+0.5)*2):h=min(576,trunc((720*16/11/dar)/2+0.5)*2)',pad='w=720:h=576:x=(ow-iw)/2:y=(oh-ih)/2',setsar='r=16/11'\" {threads 16} -c:v mpeg2video -r pal -b:v 6000k -ps 2000000000 -target pal-dvd -c:a:0 ac3 -ac:a:0 2 -b:a:0 128k -sn -f dvd", "vob", "7500k 192k"},
        {"KVPS3Preset", "-s 640x360 -aspect 640:360 {threads 16} -c:v libx264 -b:v 726k -maxrate 976k -bufsize 4M {x264 0 0 hex 7 0 baseline} {aac 128k} -sn -f ipod", "mp4", "3000k 4500k 128k"},
        {"KVXboxPreset", "-s 1280x720 -aspect 1280:720 {threads 16} -c:v mpeg4 -b:v 2550k -fflags +igndts -g 300 -q 1 -async 50 {aac 128k} -sn -f mp4", "mp4", "2500k 192k"},
        {"KViPodPreset", "-s 320x180 -aspect 320:180 {threads 16} -c:v libx264 -b:v 326k -maxrate 436k -bufsize 4M {x264 5 23 umh 7 13 baseline} {aac 128k} -sn -f ipod", "mp4", "250k 384k 128k"},
        {"KViPodNanoPreset", "-s 376x212 -aspect 376:212 {threads 16} -c:v libx264 -b:v 326k -maxrate 436k -bufsize 4M {x264 5 31 umh 7 13 baseline} {aac 128k} -sn -f ipod", "mp4", "200k 384k 128k"},
        {"KViPodNano5GPreset", "-s 320x180 -aspect 320:180 {threads 16} -c:v libx264 -b:v 326k -maxrate 436k -bufsize 4M {x264 5 31 umh 7 13 baseline} {aac 128k} -sn -f ipod", "mp4", "200k 384k 128k"},
        {"KViPhonePreset", "-s 480x270 -aspect 480:270 {threads 16} -c:v libx264 -b:v 544k -maxrate 732k -bufsize 4M -allow_sw 1 -copyts -movflags +faststart -qmin 10 -qmax 51 -flags +loop+mv4 -g 250 -i_qfactor 0.71 -refs 5 -trellis 1 -coder 0 -bf 0 -bt 256k -keyint_min 250 -sc_threshold 40 -me_method hex -me_range 16 -level 13 -profile baseline -qdiff 4 -vprofile baseline -cmp 256 -subq 7 {aac 128k} -sn -f ipod", "mp4", "526k 676k 128k"},
        {"KViPhone4Preset", "-s 960x540 -aspect 960:540 {threads 16} -c:v libx264 -b:v 1226k -maxrate 1676k -bufsize 4M {x264 21 41 umh 7 31 baseline} {aac 128k} -sn -f ipod", "mp4", "1000k 1800k 128k"},
        {"KViPhone5Preset", "-s 960x540 -aspect 960:540 {threads 16} -c:v libx264 -b:v 1226k -maxrate 1676k -bufsize 4M {x264 21 41 umh 7 31 baseline} {aac 128k} -sn -f ipod", "mp4", "1000k 1800k 128k"},
        {"KViPhone5SPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2100k -maxrate 2900k -bufsize 4M {x264 21 41 umh 7 42 baseline} {aac 128k} -sn -f ipod", "mp4", "1200k 2100k 128k"},
        {"KViPhone5CPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2100k -maxrate 2900k -bufsize 4M {x264 21 41 umh 7 42 baseline} {aac 128k} -sn -f ipod", "mp4", "1200k 2100k 128k"},
        {"KViPhoneSEPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2100k -maxrate 2900k -bufsize 4M {x264 21 41 umh 7 42 baseline} {aac 128k} -sn -f ipod", "mp4", "1200k 2100k 128k"},
        {"KViPhone6Preset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2100k -maxrate 2900k -bufsize 4M {x264 21 41 umh 7 41 baseline} {aac 128k} -sn -f ipod", "mp4", "1600k 2200k 128k"},
        {"KViPhone6SPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2100k -maxrate 2900k -bufsize 4M {x264 21 41 umh 7 41 baseline} {aac 128k} -sn -f ipod", "mp4", "1600k 2200k 128k"},
        {"KViPhone7Preset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2100k -maxrate 2900k -bufsize 4M {x264 21 41 umh 7 41 baseline} {aac 128k} -sn -f ipod", "mp4", "1600k 2200k 128k"},
        {"KViPadPreset", "-s 1024x576 -aspect 1024:576 {threads 16} -c:v libx264 -b:v 1226k -maxrate 1676k -bufsize 4M {x264 20 35 umh 7 31 baseline} {aac 128k} -sn -f ipod", "mp4", "1000k 1800k 128k"},
        {"KViPad3Preset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2520k -maxrate 3480k -bufsize 4M {x264 21 51 hex 16 41 baseline} {aac 128k} -sn -f ipod", "mp4", "1200k 2160k 128k"},
        {"KVAppleTVPreset", "-s 1280x720 -aspect 1280:720 {threads 16} -c:v libx264 -b:v 1226k -maxrate 1676k -bufsize 4M {x264 21 51 umh 7 31 baseline} {aac 128k} -sn -f ipod", "mp4", "1000k 1800k 128k"},
        {"KVAppleTV2Preset", "-s 1280x720 -aspect 1280:720 {threads 16} -c:v libx264 -b:v 1226k -maxrate 1676k -bufsize 4M {x264 21 51 hex 16 31 baseline} {aac 128k} -sn -f ipod", "mp4", "1000k 1800k 128k"},
        {"KVAppleTV3Preset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2520k -maxrate 3480k -bufsize 4M {x264 21 51 hex 16 41 baseline} {aac 128k} -sn -f ipod", "mp4", "1200k 2160k 128k"},
        {"KVAppleTV4Preset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2940k -maxrate 4060k -bufsize 4M {x264 21 51 hex 16 42 baseline} {aac 128k} -sn -f ipod", "mp4", "1680k 2800k 128k"},
        {"KVAppleTV4KPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2940k -maxrate 4060k -bufsize 4M {x264 21 51 hex 16 42 main} {aac 128k} -sn -f ipod", "mp4", "1680k 2800k 128k"},
        {"KVRokuPreset", "-s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 2940k -maxrate 4060k -bufsize 4M {x264 21 51 hex 16 42 baseline} {aac 128k} -sn -f ipod", "mp4", "1680k 2800k 128k"},
        {"KVPSPPreset", "-s 480x270 -aspect 480:270 {threads 16} -c:v libx264 -b:v 726k -maxrate 976k -bufsize 4M -allow_sw 1 -copyts -movflags +faststart -qmin 25 -qmax 40 -flags +loop -g 300 -i_qfactor 0.71 -refs 1 -trellis 2 -coder 1 -bf 0 -bt 256k -keyint_min 250 -sc_threshold 40 -me_method epzs -me_range 16 -level 30 -profile baseline -qdiff 4 -mbd 2 -cmp 2 -subcmp 2 -cmp +chroma -subq 1 -rc_eq 'blurCplx^(1-qComp)' {aac 128k} -sn -f psp", "mp4", "1000k 1800k 128k"},
    };
    // clang-format on
    for (const PresetRow &row : rows) {
        expectArguments(
            row.presetClass, argumentsOf(*make(row.presetClass), {video()}),
            expand(QString("-y -i /in/clip.mkv %1 -map 0:0 -map 0:1 {end %2}").arg(row.want, row.end)));
        const auto custom = make(row.presetClass, {{"KVVideoTrackQuality", 3}, {"KVAudioTrackQuality", 3}});
        const QStringList got = argumentsOf(*custom, {video()});
        expectArguments(row.presetClass,
                        valueBehind(got, "-b:v") + valueBehind(got, "-maxrate") + valueBehind(got, "-b:a:0"),
                        list(row.defaults));
    }
}

TEST_F(KVVideoArgumentsTest, SettingsAndSourcesChangeTheList) {
    const QString x264 = "-bufsize 4M {x264 5 31 umh 7 51 high} ";
    // clang-format off
    const Row rows[]{
        {"light enough to be copied", "KVMP4Preset", {}, {.bitrate = 1500},
         "-y -i /in/clip.mkv {threads 16} -c:v copy {aac 128k} -sn -f mp4 -map 0:0 -map 0:1 {end mp4}"},
        {"both tracks copied", "KVMP4Preset", {{"KVVideoTrackQuality", 4}, {"KVAudioTrackQuality", 4}}, {.path = "/in/movie.MOV"},
         "-y -enable_drefs 1 -i /in/movie.MOV {threads 16} -c:v copy -c:a:0 copy -sn -f mp4 -map 0:0 -map 0:1 {end mp4}"},
        {"no sound", "KVMP4Preset", {{"KVVideoTrackQuality", 4}}, {.channels = 0},
         "-y -i /in/clip.mkv {threads 16} -c:v copy -an -sn -f mp4 -map 0:0 {end mp4}"},
        {"low quality, interlaced source, the rate of television", "KVMP4Preset",
         {{"KVVideoTrackQuality", -1}, {"KVDeinterlaceVideoTrack", true}, {"ZRFramerate", 25}}, {.bitrate = 100},
         "-y -i /in/clip.mkv -vf yadif {threads 16} -c:v libx264 -r 25.00 -b:v 1700k -maxrate 2350k %1"
         "{aac 128k} -sn -f mp4 -map 0:0 -map 0:1 {end mp4}"},
        {"custom numbers", "KVMP4Preset", {{"KVVideoTrackQuality", 3}, {"ZRBitrate", 1501}, {"ZRMaxBitrate", 1801}}, {.bitrate = 100},
         "-y -i /in/clip.mkv -s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx264 -b:v 1502k -maxrate 1802k %1"
         "{aac 128k} -sn -f mp4 -map 0:0 -map 0:1 {end mp4}"},
        {"custom without numbers", "KVDivXPreset", {{"KVVideoTrackQuality", 3}, {"KVAudioTrackQuality", 3}}, {.bitrate = 100},
         "-y -i /in/clip.mkv -s 1920x1080 -aspect 1920:1080 {threads 6} -c:v mpeg4 -b:v 1024k -fflags +igndts -g 300 -q 1 "
         "-async 50 -vtag DX50 -c:a:0 libmp3lame -ac:a:0 2 -b:a:0 128k -sn -map 0:0 -map 0:1 {end avi}"},
        {"the forced rate ignores the audio bitrate", "KVFLVPreset", {{"KVAudioTrackQuality", 3}, {"ZRAudioBitrate", 320}, {"ZRAudioChannels", 1}}, {},
         "-y -i /in/clip.mkv -s 1920x1080 -aspect 1920:1080 -c:v flv -b:v 3900k -g 200 -qmin 5 -async 50 "
         "-c:a:0 libmp3lame -ac:a:0 1 -ar:a:0 44100 -b:a:0 128k -sn -f flv -map 0:0 -map 0:1 {end flv}"},
        {"a second stereo track", "KVMP4Preset", {{"KVVideoTrackQuality", 4}, {"KVAudioTrackQuality", 3}, {"ZRAudioBitrate", 256}, {"ZRIncludesStereoTrack", true}}, {.channels = 6},
         "-y -i /in/clip.mkv {threads 16} -c:v copy -c:a:0 aac -ac:a:0 6 -aq:a:0 512 -strict -2 -b:a:0 256k "
         "-c:a:1 aac -ac:a:1 2 -aq:a:1 512 -strict -2 -b:a:1 256k -sn -f mp4 -map 0:0 -map 0:1 -map 0:1 {end mp4}"},
        {"the second track follows the source at other qualities", "KVMP4Preset", {{"KVVideoTrackQuality", 4}, {"ZRIncludesStereoTrack", true}}, {.channels = 6},
         "-y -i /in/clip.mkv {threads 16} -c:v copy -c:a:0 aac -ac:a:0 6 -aq:a:0 512 -strict -2 -b:a:0 128k "
         "-c:a:1 aac -ac:a:1 6 -aq:a:1 512 -strict -2 -b:a:1 128k -sn -f mp4 -map 0:0 -map 0:1 -map 0:1 {end mp4}"},
        {"no second track beside stereo", "KVMP4Preset", {{"KVVideoTrackQuality", 4}, {"ZRIncludesStereoTrack", true}}, {},
         "-y -i /in/clip.mkv {threads 16} -c:v copy {aac 128k} -sn -f mp4 -map 0:0 -map 0:1 {end mp4}"},
        {"no second track where fewer channels are asked for", "KVMP4Preset", {{"KVVideoTrackQuality", 4}, {"KVAudioTrackQuality", 3}, {"ZRAudioChannels", 2}, {"ZRAudioBitrate", 128}, {"ZRIncludesStereoTrack", true}}, {.channels = 6},
         "-y -i /in/clip.mkv {threads 16} -c:v copy {aac 128k} -sn -f mp4 -map 0:0 -map 0:1 {end mp4}"},
        {"subtitles kept as they are", "KVMKVPreset", {{"KVVideoTrackQuality", 4}}, {.subtitleFormats = {"subrip", "ass"}},
         "-y -i /in/clip.mkv {threads 16} -c:v copy {aac 128k} -c:s copy -f matroska -map 0:0 -map 0:1 -map 0:2 {end mkv}"},
        {"subtitles in another form", "KVMKVPreset", {{"KVVideoTrackQuality", 4}}, {.subtitleFormats = {"mov_text"}},
         "-y -i /in/clip.mkv {threads 16} -c:v copy {aac 128k} -c:s ass -f matroska -map 0:0 -map 0:1 -map 0:2 {end mkv}"},
        {"subtitles encoded", "KVMP4Preset", {{"KVVideoTrackQuality", 4}}, {.audioTracks = 2, .subtitleFormats = {"subrip"}},
         "-y -i /in/clip.mkv {threads 16} -c:v copy {aac 128k} -c:s mov_text -f mp4 -map 0:0 -map 0:1 -map 0:3 {end mp4}"},
        {"picture subtitles are left to the tool", "KVMKVPreset", {{"KVVideoTrackQuality", 4}}, {.subtitleFormats = {"dvd_subtitle", "subrip"}},
         "-y -i /in/clip.mkv {threads 16} -c:v copy {aac 128k} -f matroska -map 0:0 -map 0:1 {end mkv}"},
        {"as are those of discs", "KVMP4Preset", {{"KVVideoTrackQuality", 4}}, {.subtitleFormats = {"hdmv_pgs_subtitle"}},
         "-y -i /in/clip.mkv {threads 16} -c:v copy {aac 128k} -f mp4 -map 0:0 -map 0:1 {end mp4}"},
        {"a container without subtitles", "KVDivXPreset", {{"KVVideoTrackQuality", 4}}, {.subtitleFormats = {"subrip"}},
         "-y -i /in/clip.mkv {threads 6} -c:v copy -c:a:0 libmp3lame -ac:a:0 2 -b:a:0 128k -sn -map 0:0 -map 0:1 {end avi}"},
        {"MPEG-4 in MP4", "KVMP4Preset", {{"ZRUsesH264", false}}, {.channels = 0},
         "-y -i /in/clip.mkv -s 1920x1080 -aspect 1920:1080 {threads 6} -c:v mpeg4 -b:v 5000k -fflags +igndts -g 300 -q 1 "
         "-async 50 -an -sn -f mp4 -map 0:0 {end mp4}"},
        {"MPEG-4 on a device", "KVPSPPreset", {{"ZRUsesH264", false}}, {.channels = 0},
         "-y -i /in/clip.mkv -s 480x270 -aspect 480:270 {threads 6} -c:v mpeg4 -b:v 1150k -fflags +igndts -g 300 -q 1 "
         "-async 50 -mbd 2 -flags +4mv -trellis 2 -aic 2 -cmp 2 -subcmp 2 -an -sn -f psp -map 0:0 {end mp4}"},
        {"profile of ProRes", "KVProResPreset", {{"KVProfile", 0}}, {.channels = 0},
         "-y -i /in/clip.mkv -s 1920x1080 -aspect 1920:1080 {threads 16} -c:v prores -b:v 128000k -profile:v 0 -an -sn -map 0:0 {end mov}"},
        {"HEVC in MKV", "KVHEVCPreset", {{"ContainerFormat", 1}}, {.channels = 0, .subtitleFormats = {"subrip"}},
         "-y -i /in/clip.mkv -s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx265 -b:v 2900k -preset medium -an "
         "-c:s ass -f matroska -map 0:0 -map 0:1 {end mkv}"},
        {"HEVC in MP4", "KVHEVCPreset", {{"ContainerFormat", 2}}, {.channels = 0, .subtitleFormats = {"subrip"}},
         "-y -i /in/clip.mkv -s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx265 -b:v 2900k -preset medium -an "
         "-c:s mov_text -f mp4 -map 0:0 -map 0:1 {end mp4}"},
        {"a container that there is not", "KVHEVCPreset", {{"ContainerFormat", 3}}, {.channels = 0},
         "-y -i /in/clip.mkv -s 1920x1080 -aspect 1920:1080 {threads 16} -c:v libx265 -b:v 2900k -preset medium -tag:v hvc1 "
         "-an -sn -f mov -map 0:0 {end mov}"},
        {"the bitrate follows the constrained size", "KVMP4Preset", {{"ZRHasSizeConstrains", true}, {"ZRMaxWidth", 1280}, {"ZRMaxHeight", 720}}, {.channels = 0},
         "-y -i /in/clip.mkv -s 1280x720 -aspect 1280:720 {threads 16} -c:v libx264 -b:v 1226k -maxrate 1676k %1-an -sn -f mp4 -map 0:0 {end mp4}"},
    };
    // clang-format on
    for (const Row &row : rows) {
        const QString want = QString(row.want).replace("%1", x264);
        expectArguments(row.what, argumentsOf(*make(row.presetClass, row.settings), {video(row.source)}),
                        expand(want));
    }
}

TEST_F(KVVideoArgumentsTest, HardwareEncoderTakesTheSameSwitches) {
    const QStringList software = argumentsOf(*make("KVMP4Preset"), {video()});
    KVHardwareAcceleration::setResult(true);
    QStringList want = software;
    want[want.indexOf("libx264")] = "h264_videotoolbox";
    expectArguments("hardware", argumentsOf(*make("KVMP4Preset"), {video()}), want);
    expectArguments("switched off",
                    argumentsOf(*make("KVMP4Preset", {{"KVUsesHarwdareAcceleration", false}}), {video()}),
                    software);
}

TEST_F(KVVideoArgumentsTest, SubtitlesSwitchedOffAreNotCarried) {
    const auto preset = make<KVVideoPreset>("KVMKVPreset", {{"KVVideoTrackQuality", copy}});
    preset->copySubtitles = false;
    expectArguments(
        "off", argumentsOf(*preset, {video({.channels = 0, .subtitleFormats = {"subrip"}})}),
        expand("-y -i /in/clip.mkv {threads 16} -c:v copy -an -sn -f matroska -map 0:0 {end mkv}"));
}

TEST_F(KVVideoArgumentsTest, SelectedTracksAreMapped) {
    const auto source = video({.audioTracks = 3});
    source->selectedVideoTrack->trackNumber = 5;
    source->selectedAudioTrack = source->audioTracks[2];
    const auto preset = make("KVMP4Preset", {{"KVVideoTrackQuality", copy}, {"KVAudioTrackQuality", copy}});
    expectArguments(
        "selection", argumentsOf(*preset, {source}),
        expand(
            "-y -i /in/clip.mkv {threads 16} -c:v copy -c:a:0 copy -sn -f mp4 -map 0:5 -map 0:3 {end mp4}"));
}

TEST_F(KVVideoArgumentsTest, OtherFilesGiveNoList) {
    const auto sound = std::make_shared<KVAudioFile>(QUrl::fromLocalFile("/in/a.mp3"));
    EXPECT_EQ(argumentsOf(*make("KVMP4Preset"), {sound}), QStringList());
    EXPECT_EQ(argumentsOf(*make("KVMP4Preset"), {video(), sound}), QStringList());
}

TEST_F(KVVideoArgumentsTest, StitchedFilesAreScaledToTheSmallestAndJoined) {
    const auto x264 = expand("-bufsize 4M {x264 5 31 umh 7 51 high} -an -sn -f mp4 {end mp4}");
    const auto inputs = list("-y -i /in/a.mkv -i /in/b.mkv -filter_complex");
    const auto a = [](Video source) {
        source.path = "/in/a.mkv";
        return video(source);
    };
    const auto b = [](Video source) {
        source.path = "/in/b.mkv";
        return video(source);
    };
    struct StitchRow {
        const char *what;
        QVariantMap settings;
        KVMediaFileList files;
        QStringList want; // behind "-filter_complex" and before "-bufsize"
    };
    const StitchRow rows[]{
        {"two sizes",
         {},
         {a({}), b({.width = 1280, .height = 720})},
         expand("\"[0:v]scale=width=1280:height=720[v1]; [v1] [0:a:0] [1:v:0] [1:a:0] "
                "concat=n=2:v=1:a=1:unsafe=1 [v] [a]\" -map [v] -map [a] -s 1280x720 -aspect 1280:720 "
                "{threads 16} "
                "-c:v libx264 -b:v 1226k -maxrate 1676k")},
        {"copying is not possible",
         {{"KVVideoTrackQuality", copy}},
         {a({.channels = 0}), b({.width = 1280, .height = 720, .channels = 0})},
         expand("\"[0:v]scale=width=1280:height=720[v1]; [v1] [1:v:0] concat=n=2:v=1:unsafe=1 [v]\" -map [v] "
                "{threads 16} -c:v libx264 -b:v 1550k -maxrate 2250k")},
        {"sound of one is taken for all; no deinterlacing",
         {{"KVDeinterlaceVideoTrack", true}},
         {a({.width = 1280, .height = 720}), b({.width = 1280, .height = 720, .channels = 0})},
         expand("\"[0:v:0] [0:a:0] [1:v:0] [1:a:0] concat=n=2:v=1:a=1:unsafe=1 [v] [a]\" -map [v] -map [a] "
                "-s 1280x720 -aspect 1280:720 {threads 16} -c:v libx264 -b:v 1226k -maxrate 1676k")},
    };
    for (const StitchRow &row : rows)
        expectArguments(row.what, argumentsOf(*make("KVMP4Preset", row.settings), row.files),
                        inputs + row.want + x264);
}
