#include "presets/KVPresetRegistry.h"
#include "support/KVTestMedia.h"
#include "support/KVVideoConversionTestCase.h"

#include <algorithm>
#include <iostream>
#include <map>

namespace {

/// Undamaged sources of many kinds. Whatever warns of them is a fault of the check.
class KVNoFalseAlarmTest : public KVVideoConversionTestCase {
  protected:
    static constexpr const char *picture = "testsrc2=size=160x120:rate=%1:duration=%2";

    void make(const QString &name, const QString &options, double pictureSeconds = 3, double soundSeconds = 3,
              const QString &rate = "25") {
        const QString sound = QString("sine=duration=%1:sample_rate=44100").arg(soundSeconds);
        KVTestMedia::make(QStringList{"-f", "lavfi", "-i", QString(picture).arg(rate).arg(pictureSeconds),
                                      "-f", "lavfi", "-i", sound, "-pix_fmt", "yuv420p"} +
                          options.split(' ', Qt::SkipEmptyParts) + QStringList{path(name)});
        sources += name;
    }

    void makeSound(const QString &name, const QString &options, double duration = 3) {
        // Loud and silent parts, so that a variable bitrate varies.
        KVTestMedia::make(QStringList{"-f", "lavfi", "-i",
                                      QString("anoisesrc=amplitude=0.3:seed=1:duration=%1,"
                                              "volume='if(lt(t,%2),0,1)':eval=frame")
                                          .arg(duration)
                                          .arg(duration / 2)} +
                          options.split(' ', Qt::SkipEmptyParts) + QStringList{path(name)});
        sources += name;
    }

    void makeSources();

    KVMediaFileList files(const QStringList &names) const {
        KVMediaFileList files;
        for (const QString &name : names) {
            const auto file = KVMediaFile::mediaFile(url(name));
            EXPECT_TRUE(file) << name.toStdString();
            if (file) files += *file;
        }
        return files;
    }

    QStringList sources;
};

void KVNoFalseAlarmTest::makeSources() {
    const QString h264 = "-c:v libx264 -preset ultrafast -c:a aac ";
    const QString old = "-c:v mpeg4 -q:v 4 -c:a aac ";
    make("plain.mp4", h264 + "-ac 2 -movflags +faststart");
    write("a.srt", "1\n00:00:00,500 --> 00:00:02,000\nhello\n");
    write("long.srt", "1\n00:00:00,500 --> 00:00:08,000\nhello\n");
    make("variable rate.mkv", h264 + "-vf select='not(mod(n,3))+lt(n,20)' -vsync vfr");
    const auto addSubtitles = [&](const QString &name, const QString &subtitles, const QString &options) {
        KVTestMedia::make(QStringList{"-i", path("plain.mp4"), "-i", path(subtitles), "-map", "0:v", "-map",
                                      "0:a", "-map", "1", "-c", "copy", "-c:s", "srt", "-metadata:s:s:0",
                                      "language=eng"} +
                          options.split(' ', Qt::SkipEmptyParts) + QStringList{path(name)});
        sources += name;
    };
    addSubtitles("two tracks.mkv", "a.srt",
                 "-map 0:a -metadata:s:a:0 language=eng -metadata:s:a:1 language=ger");
    addSubtitles("long subtitles.mkv", "long.srt", "");
    make("broadcast.ts", "-c:v mpeg2video -b:v 800k -c:a mp2 -ac 2");
    make("old.avi", "-c:v libxvid -q:v 4 -c:a libmp3lame -ac 2");
    make("web.webm", "-c:v libvpx-vp9 -deadline realtime -cpu-used 8 -c:a libopus -ar 48000");
    make("upright.mp4", h264);
    KVTestMedia::make(
        {"-i", path("upright.mp4"), "-c", "copy", "-metadata:s:v:0", "rotate=90", path("phone.mov")});
    sources.last() = "phone.mov";
    make("interlaced.mpg", "-c:v mpeg2video -b:v 800k -flags +ildct+ilme -top 1 -c:a mp2 -ac 2");
    make("long groups.mp4", h264 + "-g 1000 -bf 3", 3, 3, "30000/1001");
    make("odd.mkv", "-vf scale=161:121 " + old);
    make("surround.mkv", "-c:v mpeg4 -c:a ac3 -ac 6");
    make("short.mp4", h264, 0.3, 0.3);
    make("long sound.mp4", old, 2, 5);
    make("long picture.mp4", old, 5, 2);
    make("moves.gif", "-an -vf scale=80:60");
    makeSound("sound.flac", "-ac 2");
    makeSound("estimated.mp3", "-ac 2 -q:a 4 -write_xing 0", 8);
    makeSound("estimated.aac", "-ac 2 -c:a aac -q:a 1", 8);
    makeSound("tagged.mp3", "-ac 2");
    write("tagged.mp3", read(path("tagged.mp3")) + QByteArray(3000, '\0')); // padding
    makeSound("ringing.wav", "-ac 2", 45);
    KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=100x100:rate=1:duration=1", "-frames:v", "1",
                       path("cover.jpg")});
    for (const char *name : {"cover.m4a", "cover.mp3", "cover.flac"}) {
        KVTestMedia::make({"-i", path("sound.flac"), "-i", path("cover.jpg"), "-map", "0:a", "-map", "1:v",
                           "-c:v", "copy", "-disposition:v:0", "attached_pic", path(name)});
        sources += name;
    }
}

/// True with the environment variable KALVORA_ALL_PRESETS: all presets convert all sources, which takes many
/// minutes. Otherwise one of each family converts every third source.
bool isWholeMatrix() {
    return qEnvironmentVariableIsSet("KALVORA_ALL_PRESETS");
}

std::vector<std::shared_ptr<KVPreset>> presets() {
    static const QStringList some{"KVMP3Preset",
                                  "KVAACPreset",
                                  "KVWAVPreset",
                                  "KVMP4Preset",
                                  "KVMKVPreset",
                                  "KViPhonePreset",
                                  "KVDivXPreset",
                                  "KVMPEG2Preset",
                                  "KVRemuxPreset",
                                  "KVHTTPLiveStreamingPreset",
                                  "KVGIFAnimationPreset",
                                  "KViPhoneRingtonePreset",
                                  "KVVolumeAdjustingPreset",
                                  "KVTransformPreset"};
    std::vector<std::shared_ptr<KVPreset>> presets;
    for (const auto &preset : KVPreset::allPresets()) {
        const auto type = preset->presetType();
        if (type == KVMediaFileType::picture) continue;
        if (isWholeMatrix() || some.contains(QString::fromStdString(std::string(preset->presetClass().name))))
            presets.push_back(preset);
    }
    return presets;
}

/// Of what a copy into AVI really loses; empty for all others.
QString rightWarning(const QString &label) {
    const bool isCopied = label.startsWith("Remux");
    if (isCopied && label.endsWith(" of phone.mov"))
        return "The rotation of the video is lost, because AVI files cannot hold it.";
    if (isCopied && label.endsWith(" of moves.gif"))
        return "The picture cannot be played: the format of the result cannot hold \"gif\".";
    return {};
}

} // namespace

TEST_F(KVNoFalseAlarmTest, WarnsOfNoUndamagedSource) {
    makeSources();
    std::vector<Job> jobs;
    const auto probedSources = files(sources);
    qsizetype turn = 0;
    for (const auto &preset : presets()) {
        ++turn;
        for (qsizetype i = 0; i < probedSources.size(); ++i) {
            if (!isWholeMatrix() && (i + turn) % 3 != 0) continue;
            const auto &file = probedSources[i];
            const bool isSound = file->mediaFileType() == KVMediaFileType::audio;
            if (isSound && preset->presetType() != KVMediaFileType::audio) continue;
            jobs.push_back({preset->name + " of " + file->url().fileName(), preset, {file}});
        }
    }
    for (const auto &names : {QStringList{"plain.mp4", "broadcast.ts"},
                              {"long picture.mp4", "plain.mp4"},
                              {"surround.mkv", "two tracks.mkv"},
                              {"long sound.mp4", "web.webm", "phone.mov"}})
        for (const char *preset : {"KVMP4Preset", "KVMKVPreset", "KVMP3Preset", "KVHTTPLiveStreamingPreset"})
            jobs.push_back(
                {QString(preset) + " of " + names.join(" and "), KVTestPresets::make(preset), files(names)});
    std::map<QString, QString> outputs;
    constexpr std::size_t mostAtOnce = 20; // for the time limit of a run
    for (std::size_t begin = 0; begin < jobs.size(); begin += mostAtOnce) {
        const auto end = std::min(begin + mostAtOnce, jobs.size());
        outputs.merge(convert({jobs.begin() + static_cast<std::ptrdiff_t>(begin),
                               jobs.begin() + static_cast<std::ptrdiff_t>(end)}));
    }
    int succeeded = 0;
    for (const Job &job : jobs) {
        EXPECT_EQ(warningsOf(job.label).join('|'), rightWarning(job.label)) << job.label.toStdString();
        if (!outputs.at(job.label).isEmpty())
            ++succeeded;
        else if (failureOf(job.label).contains("The result is empty"))
            ADD_FAILURE() << job.label.toStdString() << failureOf(job.label).toStdString();
        else if (isWholeMatrix())
            std::cout << "failed: " << job.label.toStdString() << "\n";
    }
    EXPECT_GT(succeeded, static_cast<int>(jobs.size()) * 9 / 10) << jobs.size();
}
