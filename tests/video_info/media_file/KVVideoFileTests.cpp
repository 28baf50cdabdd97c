#include "video_info/media_file/KVVideoFile.h"

#include "support/KVTestCase.h"
#include "util/KVAnonymousPath.h"
#include "util/KVPreferenceKeys.h"
#include "video_info/media_file/KVPictureFile.h"

namespace {

class KVVideoFileTest : public KVTestCase {
  protected:
    /// The name of the subtitles file that is found for `movie`; empty where none is.
    QString subtitlesOf(const QString &movie) const {
        KVVideoFile file(url(movie));
        const bool isFound = file.automaticallyDetectSubtitles();
        EXPECT_EQ(isFound, file.subtitlesFileURL.has_value());
        return isFound ? file.subtitlesFileURL->fileName() : QString();
    }
};

TEST_F(KVVideoFileTest, FindsTheSubtitlesFileBesideTheVideo) {
    EXPECT_EQ(subtitlesOf("movie.mkv"), "");
    write("movie.SRT", "");
    write("another movie.srt", "");
    EXPECT_EQ(subtitlesOf("movie.mkv"), "");
    write("movie.en.srt", "");
    write("movie.de.srt", "");
    EXPECT_EQ(subtitlesOf("movie.mkv"), "movie.de.srt");
    write("movie.srt", "");
    EXPECT_EQ(subtitlesOf("movie.mkv"), "movie.srt");
    EXPECT_EQ(subtitlesOf("another movie"), "another movie.srt");
    EXPECT_EQ(subtitlesOf("missing/movie.mkv"), "");

    KVPreferences::shared().setBoolean(false, KVPreferenceKeys::automaticallyAddSubtitles);
    EXPECT_EQ(subtitlesOf("movie.mkv"), "");
}

TEST_F(KVVideoFileTest, DescribesItselfForTheLogWithoutTheUsersName) {
    write(KVUserName() + "/a.mov", QByteArray(1234, 'x'));
    KVVideoFile file(url(KVUserName() + "/a.mov"));
    file.audioTracks = {{128, "aac", 44100, 2, "eng (2)", 1}, {64, "aac", 44100, 1, "Track 2 (1)", 2}};
    file.videoTracks = {
        {.format = "h264", .framesPerSecond = 25, .height = 48, .trackName = {}, .width = 64}};
    file.selectedAudioTrack = file.audioTracks[1];
    file.subtitleTracks = {{"subrip", "deu", 3}};
    const QString expected =
        "\tFile Type: Video\n"
        "\tURL: " +
        path() +
        "/*USER*/a.mov\n"
        "\tFile Size: 1 KB\n"
        "\tAudio tracks: \n"
        "\t\t 'eng (2)': track number 1, 2 channels, 44100 Hz, 128 kbit/s of format aac\n"
        "\t\t*'Track 2 (1)': track number 2, 1 channels, 44100 Hz, 64 kbit/s of format aac\n"
        "\tVideo tracks: \n"
        "\t\t h264: track number 0, 64x48, 25 fps (0 frames)\n"
        "\tSubtitles: \n"
        "\t\t'deu': track number 3 of format subrip\n"
        "\tSubtitles file: ";
    EXPECT_EQ(file.description(), expected + "No subtitles");
    file.subtitlesFileURL = url(KVUserName() + "/a.srt");
    EXPECT_EQ(file.description(), expected + path() + "/*USER*/a.srt (UTF-8)");

    EXPECT_EQ(KVAnonymousPath("/Users/anna/Movies/anna.mov", "anna"), "/Users/*USER*/Movies/anna.mov");
    EXPECT_EQ(KVPictureFile(url("a.png")).description(),
              "\tFile Type: Picture\n\tURL: " + path("a.png") + "\n\tFile Size: Zero KB");
}

} // namespace
