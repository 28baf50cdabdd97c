#include "video_info/media_file/KVMediaFile.h"

#include "platform/KVResources.h"
#include "platform/KVScriptedQuestions.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "util/KVAnonymousPath.h"
#include "video_info/media_file/KVDVDFile.h"
#include "video_info/media_file/KVPictureFile.h"
#include "video_info/media_file/KVVideoFile.h"

#include <linux/capability.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <vector>

namespace {

class KVMediaFileTest : public KVTestCase {
  protected:
    static KVResult<std::shared_ptr<KVMediaFile>> probe(const QString &path) {
        return KVMediaFile::mediaFile(QUrl::fromLocalFile(path));
    }

    template <class File>
    static std::shared_ptr<File> probeAs(const QString &path) {
        const auto file = probe(path);
        EXPECT_TRUE(file) << (file ? "" : file.error().reason.toStdString());
        return file ? std::dynamic_pointer_cast<File>(*file) : nullptr;
    }

    static QString refusal(const QString &path) {
        const auto file = probe(path);
        if (file) return "taken as " + KVMediaFileTypes::caseName((*file)->mediaFileType());
        EXPECT_EQ(file.error().domain, "KVMediaFileErrorDomain");
        EXPECT_EQ(file.error().code, 0);
        return file.error().reason;
    }

    /// The tool is what the test has written to "resources/ffmpeg".
    void useOwnResources() const {
        QFile::copy(_resources + "/fonts.conf", path("resources/fonts.conf"));
        KVResources::setDirectory(path("resources"));
    }
    void TearDown() override { KVResources::setDirectory(_resources); }

    QString still(const QString &name) const {
        KVTestMedia::make(
            {"-f", "lavfi", "-i", "testsrc2=size=32x24,format=rgb24", "-frames:v", "1", path(name)});
        return path(name);
    }

    /// A tone with the picture at `picture` as its cover.
    QString toneWithCover(const QString &name, const QString &picture) const {
        KVTestMedia::make({"-f", "lavfi", "-i", "sine=duration=0.3", "-i", picture, "-map", "0", "-map", "1",
                           "-c:v", "copy", "-disposition:v", "attached_pic", path(name)});
        return path(name);
    }

  private:
    const QString _resources = KVResources::directory();
};

/// Takes the right to read everything from the superuser, for the thread that runs the test.
void obeyFilePermissions() {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[2]{};
    ASSERT_EQ(::syscall(SYS_capget, &header, data), 0);
    for (const unsigned capability : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) {
        data[0].effective &= ~(1U << capability);
        data[0].permitted &= ~(1U << capability);
    }
    ASSERT_EQ(::syscall(SYS_capset, &header, data), 0);
}

TEST_F(KVMediaFileTest, RefusesWhatNeverIsMedia) {
    const QString filtered = "File type is blacklisted by a file extension filter.";
    EXPECT_EQ(refusal(write("Movie.SRT", "1\n")), filtered);
    EXPECT_EQ(refusal(KVTestMedia::tone(path("a.wav"), 0.1)), "taken as audio");
    QFile::rename(path("a.wav"), path("a.wav.part"));
    EXPECT_EQ(refusal(path("a.wav.part")), filtered);
    QDir().mkdir(path("sources.zip"));
    EXPECT_EQ(refusal(path("sources.zip")), filtered);

    const QString unknown = "Unrecognized file format.";
    EXPECT_EQ(refusal(write("text.mp3", "no music at all\n")), unknown);
    EXPECT_EQ(refusal(write("empty.mp4", {})), unknown);
    EXPECT_EQ(refusal(path("missing.mp4")), unknown);
}

TEST_F(KVMediaFileTest, RefusesPipesAndDevicesInsteadOfReadingForEver) {
    for (const QString name : {"pipe.wav", "pipe.png", "pipe.gif", "pipe"}) {
        ASSERT_EQ(::mkfifo(path(name).toUtf8().constData(), 0600), 0);
        EXPECT_EQ(refusal(path(name)), "This is no regular file.") << name.toStdString();
    }
    ASSERT_TRUE(QFile::link("/dev/zero", path("zero.mp4")));
    EXPECT_EQ(refusal(path("zero.mp4")), "This is no regular file.");
}

TEST_F(KVMediaFileTest, TellsWhatTheToolSaidOfAnUnknownFile) {
    const auto file = probe(path("missing.mp4"));
    ASSERT_FALSE(file);
    const QString text = file.error().userInfo.value("NSAffectedObjectsErrorKey").toString();
    EXPECT_TRUE(text.contains("missing.mp4: No such file or directory")) << text.toStdString();
}

TEST_F(KVMediaFileTest, PassesOnThatTheToolCannotBeStarted) {
    write("resources/ffmpeg", "no program");
    useOwnResources();
    const auto file = probe(write("song.mp3", "x"));
    ASSERT_FALSE(file);
    EXPECT_NE(file.error().domain, KVMediaFileErrorDomain);
    EXPECT_FALSE(file.error().reason.isEmpty());
}

TEST_F(KVMediaFileTest, ReadsASoundFileWithAHostileName) {
    for (const QString name : {"-i quote's \"%s\" a:b.wav", "new\nline.wav", "Grün.wav"}) {
        const auto file = probeAs<KVAudioFile>(KVTestMedia::tone(path(name), 0.5, 22050));
        ASSERT_TRUE(file) << name.toStdString();
        EXPECT_EQ(file->mediaFileType(), KVMediaFileType::audio);
        EXPECT_EQ(file->url(), url(name));
        EXPECT_DOUBLE_EQ(file->seconds, 0.5);
        ASSERT_EQ(file->audioTracks.size(), 1);
        EXPECT_EQ(file->selectedAudioTrack, file->audioTracks.first());
        EXPECT_EQ(file->audioTracks.first(),
                  (KVAudioTrack{705, "pcm_s16le ([1][0][0][0] / 0x0001)", 22050, 2, "Track 1 (2)", 0}));
    }
}

TEST_F(KVMediaFileTest, LetsTheExtensionDecideOnACoverPicture) {
    const QString cover = still("cover.jpg");
    EXPECT_EQ(refusal(toneWithCover("a.mp3", cover)), "taken as audio");
    const auto flac = probeAs<KVVideoFile>(toneWithCover("a.flac", cover));
    ASSERT_TRUE(flac);
    EXPECT_EQ(flac->mediaFileType(), KVMediaFileType::video);
    EXPECT_EQ(flac->selectedVideoTrack->format, "mjpeg (Baseline)");
    EXPECT_TRUE(flac->selectedAudioTrack);
}

TEST_F(KVMediaFileTest, ReadsEveryTrackOfAVideo) {
    write("s.srt", "1\n00:00:00,000 --> 00:00:00,300\nhello\n");
    KVTestMedia::make({"-f",
                       "lavfi",
                       "-i",
                       "testsrc2=size=64x48:rate=25:duration=0.4",
                       "-f",
                       "lavfi",
                       "-i",
                       "sine=duration=0.4",
                       "-i",
                       path("s.srt"),
                       "-map",
                       "0",
                       "-map",
                       "1",
                       "-map",
                       "1",
                       "-map",
                       "2",
                       "-map",
                       "2",
                       "-metadata:s:a:0",
                       "language=eng",
                       "-metadata:s:s:0",
                       "language=deu",
                       "-c:s",
                       "srt",
                       "-c:a",
                       "aac",
                       path("a.mkv")});
    const auto file = probeAs<KVVideoFile>(path("a.mkv"));
    ASSERT_TRUE(file);
    EXPECT_NEAR(file->seconds, 0.4, 0.05);
    ASSERT_EQ(file->videoTracks.size(), 1);
    EXPECT_EQ(file->selectedVideoTrack, file->videoTracks.first());
    EXPECT_EQ(file->selectedVideoTrack->framesPerSecond, 25);
    EXPECT_EQ(file->selectedVideoTrack->width, 64);
    ASSERT_EQ(file->audioTracks.size(), 2);
    EXPECT_EQ(file->selectedAudioTrack, file->audioTracks.first());
    EXPECT_EQ(file->audioTracks[0].trackName, "eng (1)");
    EXPECT_EQ(file->audioTracks[1].trackName, "Track 2 (1)");
    EXPECT_EQ(file->subtitleTracks, (QList<KVSubtitleTrack>{{"subrip", "deu", 3}}));
}

TEST_F(KVMediaFileTest, ShowsVideoAsItIsDisplayed) {
    KVTestMedia::clip(path("plain.mp4"), 0.2, "64x48");
    for (const auto &[rotation, width] : {std::pair{"90", 48}, {"270", 48}, {"180", 64}}) {
        KVTestMedia::make({"-i", path("plain.mp4"), "-c", "copy", "-metadata:s:v",
                           QString("rotate=%1").arg(rotation), path("turned.mov")});
        const auto turned = probeAs<KVVideoFile>(path("turned.mov"));
        ASSERT_TRUE(turned);
        EXPECT_EQ(turned->selectedVideoTrack->width, width) << rotation;
        EXPECT_EQ(turned->selectedVideoTrack->height, 64 + 48 - width) << rotation;
    }
    KVTestMedia::clip(path("pal.mpg"), 0.2, "720x576", {"-c:v", "mpeg2video", "-vf", "setsar=16/15"});
    const auto anamorphic = probeAs<KVVideoFile>(path("pal.mpg"));
    ASSERT_TRUE(anamorphic);
    EXPECT_EQ(anamorphic->selectedVideoTrack->width, 768);
    EXPECT_EQ(anamorphic->selectedVideoTrack->height, 576);
}

TEST_F(KVMediaFileTest, TakesPicturesWithTheirSizeAndWithoutTheTool) {
    for (const QString name : {"a.png", "A.JPG", "a[1].tiff", "a.bmp", "still.gif"}) {
        const auto file = probeAs<KVPictureFile>(still(name));
        ASSERT_TRUE(file) << name.toStdString();
        EXPECT_EQ(file->width, 32) << name.toStdString();
        EXPECT_EQ(file->height, 24) << name.toStdString();
        EXPECT_TRUE(file->thumbnail.isEmpty());
    }
    const auto damaged = probeAs<KVPictureFile>(write("damaged.gif", "GIF89a and no more"));
    ASSERT_TRUE(damaged);
    EXPECT_EQ(damaged->width, 0);
}

TEST_F(KVMediaFileTest, TakesAnAnimationAsVideo) {
    KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=32x24:rate=5:duration=1", path("moving.gif")});
    const auto file = probeAs<KVVideoFile>(path("moving.gif"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->selectedVideoTrack->numberOfFrames, 5);
    EXPECT_FALSE(file->selectedAudioTrack);
}

TEST_F(KVMediaFileTest, TakesAFolderAsADVDInItsParent) {
    QDir().mkpath(path("disc/VIDEO_TS"));
    for (const QString name : {"disc/VIDEO_TS", "disc/VIDEO_TS/"}) {
        const auto file = probeAs<KVDVDFile>(path() + "/" + name);
        ASSERT_TRUE(file);
        EXPECT_EQ(file->url(), url("disc")) << name.toStdString();
    }
}

TEST_F(KVMediaFileTest, AsksNothingForADiscInAFolderThatCannotBeRead) {
    obeyFilePermissions();
    QDir().mkpath(path("disc/VIDEO_TS"));
    const auto questions = std::make_shared<KVScriptedQuestions>();
    KVUserQuestion::setResponder(questions);
    ::chmod(path("disc").toUtf8().constData(), 0300);
    EXPECT_EQ(refusal(path("disc/VIDEO_TS")), "taken as dvd");
    ::chmod(path("disc").toUtf8().constData(), 0700);
    EXPECT_TRUE(questions->openPanels.empty());
}

TEST_F(KVMediaFileTest, KnowsProtectionByTrackFormatAndExtension) {
    KVAudioTrack plain, protectedAudio;
    protectedAudio.format = "none (drms / 0x736D7264)";
    KVVideoTrack protectedVideo;
    protectedVideo.format = "drmi";

    EXPECT_TRUE(KVAudioFile(url("a.AAX")).isDRMProtected());
    EXPECT_FALSE(KVPictureFile(url("a.png")).isDRMProtected());
    KVVideoFile file(url("a.mp4"));
    file.audioTracks = {plain};
    EXPECT_FALSE(file.isDRMProtected());
    file.audioTracks = {plain, protectedAudio};
    EXPECT_TRUE(file.isDRMProtected());
    file.audioTracks[1].format = "None (drms)";
    EXPECT_FALSE(file.isDRMProtected());
    file.videoTracks = {protectedVideo};
    EXPECT_TRUE(file.isDRMProtected());
}

} // namespace
