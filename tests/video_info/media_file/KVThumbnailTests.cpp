#include "video_info/media_file/KVAudioFile.h"

#include "platform/KVResources.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "util/KVBackgroundQueue.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVTempDirectory.h"

#include <latch>

#include <sys/stat.h>

namespace {

class KVThumbnailTest : public KVTestCase {
  protected:
    std::shared_ptr<KVMediaFile> probe(const QString &path) const {
        return KVMediaFile::mediaFile(QUrl::fromLocalFile(path)).value();
    }

    /// Returns when all has been done that was handed over to the background before.
    static void waitForBackground() {
        std::latch threads(2); // both have to come here, and each takes the next piece of work in order
        std::latch left(2);
        for (int thread = 0; thread < 2; ++thread)
            KVBackgroundQueue::shared().async([&](const std::stop_token &) {
                threads.arrive_and_wait();
                left.count_down();
            });
        left.wait();
    }
};

TEST_F(KVThumbnailTest, ArrivesLaterOnTheMainThreadAndIsTold) {
    KVMediaFile::setMakesThumbnails(true);
    const auto file = probe(KVTestMedia::clip(path("a.mp4"), 0.4, "320x240"));
    EXPECT_TRUE(file->thumbnail.isEmpty());
    int told = 0;
    const auto observation = KVNotificationCenter::defaultCenter().addObserver<KVMediaFile>(
        KVMediaFileDidLoadThumbnail,
        [&](const std::shared_ptr<KVMediaFile> &told_) { told += told_ == file; }, file);
    ASSERT_TRUE(runUntil([&] { return told == 1; }));
    const auto thumbnail = QImage::fromData(file->thumbnail);
    EXPECT_EQ(thumbnail.size(), QSize(128, 96));
    EXPECT_NE(thumbnail.pixelColor(10, 10), thumbnail.pixelColor(100, 80));
    EXPECT_TRUE(QDir(KVTempDirectoryPath()).entryList({"*.jpg"}).isEmpty());
}

TEST_F(KVThumbnailTest, DoesNotHoldUpTheEndOfTheProgram) {
    // Says that it has been started by opening a pipe, then takes its time.
    writeScript("resources/ffmpeg",
                "[ \"$2\" = -h ] && exit 1\n: > '" + path("started").toUtf8() + "'\nexec sleep 600\n");
    ASSERT_EQ(::mkfifo(path("started").toUtf8().constData(), 0600), 0);
    const QString resources = KVResources::directory();
    QFile::copy(resources + "/fonts.conf", path("resources/fonts.conf"));
    KVResources::setDirectory(path("resources"));

    const auto file = std::make_shared<KVAudioFile>(url("a.mp3"));
    KVBackgroundQueue queue(1);
    queue.async([&](const std::stop_token &stop) {
        static_cast<void>(KVFFmpegTask::generateRandomImage(*file, stop));
    });
    EXPECT_TRUE(QFile(path("started")).open(QIODevice::ReadOnly));
    queue.finish();
    KVResources::setDirectory(resources);
}

TEST_F(KVThumbnailTest, StaysAwayUnlessWanted) {
    const QString clip = KVTestMedia::clip(path("a.mp4"), 0.4);
    KVMediaFile::setMakesThumbnails(false);
    const auto unasked = probe(clip);
    KVMediaFile::setMakesThumbnails(true);
    KVPreferences::shared().setBoolean(true, KVPreferenceKeys::DisablePreviews);
    const auto disabled = probe(clip);
    waitForBackground();
    runUntil([] { return false; }, 0.05);
    EXPECT_TRUE(unasked->thumbnail.isEmpty());
    EXPECT_TRUE(disabled->thumbnail.isEmpty());
}

TEST_F(KVThumbnailTest, APictureHasOneEvenIfPreviewsAreSwitchedOff) {
    KVMediaFile::setMakesThumbnails(true);
    KVPreferences::shared().setBoolean(true, KVPreferenceKeys::DisablePreviews);
    KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=64x48", "-frames:v", "1", path("a.png")});
    const auto file = probe(path("a.png"));
    EXPECT_TRUE(runUntil([&] { return !file->thumbnail.isEmpty(); }));
}

TEST_F(KVThumbnailTest, ShowsTheCoverOfASoundFileAndThePictureItself) {
    KVMediaFile::setMakesThumbnails(true);
    const QString picture = path("cover.png");
    KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=400x200", "-frames:v", "1", picture});
    const QString tone = KVTestMedia::tone(path("a.wav"), 0.1);
    const QString song = path("a.mp3");
    KVTestMedia::make(
        {"-i", tone, "-i", picture, "-map", "0", "-map", "1", "-disposition:v", "attached_pic", song});
    for (const QString &name : {picture, song}) {
        const auto file = probe(name);
        ASSERT_TRUE(runUntil([&] { return !file->thumbnail.isEmpty(); })) << name.toStdString();
        EXPECT_EQ(QImage::fromData(file->thumbnail).size(), QSize(128, 64));
    }
}

TEST_F(KVThumbnailTest, FailsForASoundFileWithoutAPicture) {
    const auto file = probe(KVTestMedia::tone(path("a.wav"), 0.1));
    QString reason;
    std::latch left(1);
    file->loadThumbnail([&](const KVMediaFile::ThumbnailResult &result) {
        reason = result ? "a picture" : result.error().reason;
        left.count_down();
    });
    left.wait();
    EXPECT_TRUE(reason.startsWith("Thumbnail at URL " + KVTempDirectoryPath())) << reason.toStdString();
    EXPECT_TRUE(reason.endsWith(".jpg is in invalid image format.")) << reason.toStdString();
}

} // namespace
