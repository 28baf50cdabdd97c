#include "controllers/KVKalvoraAppDelegate.h"
#include "kvcore/KVMainThread.h"
#include "platform/KVScriptedQuestions.h"
#include "queues/KVConversionQueue.h"
#include "support/KVStandInTool.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "util/KVPreferenceKeys.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTranslator>

#include <mutex>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using Kind = KVIntakeRefusal::Kind;

/// Writes down what was refused, as "name: reason".
class Observer : public KVIntakeObserver {
  public:
    void intakeDidRefuse(const KVIntakeRefusal &refusal) override {
        const std::scoped_lock lock(_mutex);
        _refusals.push_back(refusal);
    }
    std::vector<KVIntakeRefusal> refusals() const {
        const std::scoped_lock lock(_mutex);
        return _refusals;
    }
    std::optional<Kind> kindFor(const QString &name) const {
        for (const auto &refusal : refusals())
            if (QFileInfo(refusal.path).fileName() == name) return refusal.kind;
        return std::nullopt;
    }

    void intakeDidMeetDisc(const QUrl &videoFolder) override {
        const std::scoped_lock lock(_mutex);
        _discs.append(videoFolder);
    }
    QList<QUrl> takeDiscs() {
        const std::scoped_lock lock(_mutex);
        return std::exchange(_discs, {});
    }

    std::optional<qint64> chosenTrack;
    std::optional<qint64> intakeChosenAudioTrack(const KVAudioFile &) override { return chosenTrack; }

  private:
    mutable std::mutex _mutex;
    std::vector<KVIntakeRefusal> _refusals;
    QList<QUrl> _discs;
};

/// A translation that changes every text.
class ChangingTranslator : public QTranslator {
  public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *, const char *, int) const override { return "x"; }
};

class KVFileIntakeTest : public KVTestCase {
  protected:
    void SetUp() override {
        KVUserQuestion::setResponder(questions);
        intake.setObserver(observer);
    }
    void TearDown() override {
        EXPECT_TRUE(intake.waitUntilLoaded(30));
        for (const auto &queue : KVConversionQueue::allQueues())
            queue->setConversions({});
        KVUserQuestion::setResponder(nullptr);
    }

    QString tone(const QString &name) const {
        QDir().mkpath(QFileInfo(path(name)).path());
        return KVTestMedia::tone(path(name), 0.2);
    }
    /// Many files from one.
    void tones(const QStringList &names) const {
        const QString first = tone(names.first());
        for (const QString &name : names.sliced(1)) {
            QDir().mkpath(QFileInfo(path(name)).path());
            ASSERT_TRUE(QFile::copy(first, path(name)));
        }
    }
    QString clip(const QString &name, const QStringList &arguments = {}) const {
        return KVTestMedia::clip(path(name), 0.2, "64x48", arguments);
    }

    static QStringList queued(KVMediaFileType type) {
        QStringList names;
        for (const auto &conversion : KVConversionQueue::queue(type)->conversions())
            names += KVMediaFileList(conversion->mediaFiles()).first()->url().fileName();
        return names;
    }
    template <class File>
    static std::shared_ptr<File> firstFile(KVMediaFileType type) {
        const auto conversions = KVConversionQueue::queue(type)->conversions();
        return conversions.isEmpty()
                   ? nullptr
                   : std::dynamic_pointer_cast<File>(conversions.first()->mediaFiles().first());
    }
    bool add(const QString &name) { return intake.addFiles({url(name)}); }

    const std::shared_ptr<KVScriptedQuestions> questions = std::make_shared<KVScriptedQuestions>();
    const std::shared_ptr<Observer> observer = std::make_shared<Observer>();
    KVKalvoraAppDelegate intake;
};

constexpr auto audio = KVMediaFileType::audio;
constexpr auto video = KVMediaFileType::video;
constexpr auto dvd = KVMediaFileType::dvd;

TEST_F(KVFileIntakeTest, LoadsFourMembersOfAFolderAtOnceAndTheOthersBehind) {
    QStringList names;
    for (int i = 0; i < 10; ++i)
        names += QStringLiteral("in/%1.wav").arg(i);
    tones(names);
    EXPECT_TRUE(add("in"));
    EXPECT_EQ(queued(audio), QStringList({"0.wav", "1.wav", "2.wav", "3.wav"}));
    EXPECT_TRUE(intake.isLoading());
    EXPECT_TRUE(intake.waitUntilLoaded(60));
    EXPECT_EQ(queued(audio).size(), 10);
    EXPECT_EQ(queued(audio).value(9), "9.wav");
}

TEST_F(KVFileIntakeTest, TakesAFileOnceAndSaysNothing) {
    tone("a.wav");
    EXPECT_FALSE(intake.addFiles({}));
    EXPECT_TRUE(intake.addFiles({url("a.wav"), url("a.wav")}));
    EXPECT_FALSE(add("a.wav"));
    EXPECT_EQ(queued(audio), QStringList("a.wav"));
    EXPECT_EQ(observer->kindFor("a.wav"), Kind::alreadyQueued);
    EXPECT_TRUE(questions->alerts.empty());
}

TEST_F(KVFileIntakeTest, PassesOverStrangersAndGoesOn) {
    tones({"good.wav", "song.m4p"});
    write("fake.mp3", "this is no sound");
    write("empty.wav", "");
    write("notes.TXT", "text");
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe.wav")).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(path("loop.mp4"), path("loop.mp4")));
    const QString whole = clip("whole.mp4");
    write("cut.mp4", read(whole).first(read(whole).size() / 2));
    intake.addURLs({QUrl("https://example.org/a.wav"), url("missing.wav"), url("fake.mp3"), url("empty.wav"),
                    url("notes.TXT"), url("song.m4p"), url("pipe.wav"), url("good.wav"), url("missing.png"),
                    url("loop.mp4"), url("cut.mp4")});
    EXPECT_EQ(queued(audio), QStringList("good.wav"));
    EXPECT_TRUE(questions->alerts.empty());

    const auto refusals = observer->refusals();
    ASSERT_EQ(refusals.size(), 10U);
    EXPECT_EQ(refusals[0].kind, Kind::notAFile);
    EXPECT_EQ(refusals[1].reason, "No such file or folder.");
    EXPECT_EQ(refusals[2].reason, "Unrecognized file format.");
    EXPECT_EQ(refusals[3].reason, "The file is empty.");
    EXPECT_EQ(refusals[4].kind, Kind::filtered);
    EXPECT_EQ(refusals[5].kind, Kind::isProtected);
    EXPECT_EQ(refusals[6].reason, "This is no regular file.");
    EXPECT_EQ(refusals[7].reason, "No such file or folder.");
    EXPECT_EQ(refusals[8].reason, "The link leads back to itself.");
    EXPECT_EQ(refusals[9].reason, "The file is incomplete: the index that belongs to it is missing.");
}

TEST_F(KVFileIntakeTest, HasLoadedOnlyWhenTheMainThreadKnowsOfTheLastRefusal) {
    class Teller : public KVIntakeObserver {
      public:
        int told = 0;
        void intakeDidRefuse(const KVIntakeRefusal &) override {
            KVMainThread::async([this] { ++told; });
        }
    };
    const auto teller = std::make_shared<Teller>();
    intake.setObserver(teller);
    for (int round = 1; round <= 30; ++round) {
        intake.addFilesInBackground({url("notes.txt")});
        ASSERT_TRUE(intake.waitUntilLoaded(30));
        ASSERT_EQ(teller->told, round);
    }
}

TEST_F(KVFileIntakeTest, ReadsSubfoldersOnlyWhereThePreferenceSaysSo) {
    tones({"in/top.wav", "in/sub/one.wav", "in/sub/deep/two.wav"});
    ASSERT_TRUE(QFile::link(path("in"), path("in/sub/deep/again")));
    EXPECT_TRUE(add("in"));
    EXPECT_EQ(queued(audio), QStringList("top.wav"));
    EXPECT_TRUE(observer->refusals().empty()) << "subfolders are skipped without a word";

    KVPreferences::shared().setValueForThisRun(true, KVPreferenceKeys::RecursivelyProcessAllFolders);
    EXPECT_TRUE(add("in"));
    KVPreferences::shared().setValueForThisRun(false, KVPreferenceKeys::RecursivelyProcessAllFolders);
    EXPECT_EQ(queued(audio), QStringList({"top.wav", "two.wav", "one.wav"}));
    EXPECT_EQ(observer->kindFor("again"), Kind::alreadyQueued) << "a folder that leads back is entered once";
}

TEST_F(KVFileIntakeTest, TellsOfNamesThatAreNoText) {
    tone("in/a.wav");
    ASSERT_EQ(::link(QFile::encodeName(path("in/a.wav")).constData(),
                     (QFile::encodeName(path("in/")) + "b\xe9.wav").constData()),
              0);
    EXPECT_TRUE(add("in"));
    EXPECT_EQ(queued(audio), QStringList("a.wav"));
    ASSERT_EQ(observer->refusals().size(), 1U);
    EXPECT_TRUE(observer->refusals()[0].path.endsWith("/in/b\\xE9.wav"))
        << observer->refusals()[0].path.toStdString();
}

TEST_F(KVFileIntakeTest, FindsADVDInAPackageAndByItsOwnFolder) {
    write("Movie.dvdmedia/VIDEO_TS/VIDEO_TS.IFO", "x");
    write("disc/VIDEO_TS/VIDEO_TS.IFO", "x");
    EXPECT_TRUE(add("Movie.dvdmedia"));
    EXPECT_TRUE(add("disc/VIDEO_TS"));
    EXPECT_TRUE(add("disc/VIDEO_TS")) << "a disc may enter twice";
    EXPECT_EQ(queued(dvd), QStringList({"Movie.dvdmedia", "disc", "disc"}));
    EXPECT_FALSE(add("disc")) << "inside of a folder it is a folder like any other";
}

TEST_F(KVFileIntakeTest, RecognisesARejectionInEveryLanguage) {
    ChangingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    write("notes.txt", "text");
    write("fake.mp3", "this is no sound");
    intake.addFiles({url("notes.txt"), url("fake.mp3")});
    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(observer->kindFor("notes.txt"), Kind::filtered);
    EXPECT_EQ(observer->kindFor("fake.mp3"), Kind::unreadable);
}

TEST_F(KVFileIntakeTest, ReportsTheDiscsInsideAFolder) {
    write("Films/VIDEO_TS/VIDEO_TS.IFO", "x");
    write("Films/Movie.dvdmedia/VIDEO_TS/VIDEO_TS.IFO", "x");
    write("Films/empty.dvdmedia/a.txt", "x");
    write("Films/Other/VIDEO_TS/VIDEO_TS.IFO", "x");
    EXPECT_FALSE(add("Films"));
    const QUrl inPackage = url("Films/Movie.dvdmedia/VIDEO_TS");
    EXPECT_EQ(observer->takeDiscs(), (QList<QUrl>{inPackage, url("Films/VIDEO_TS")}));
    EXPECT_TRUE(observer->refusals().empty()) << "subfolders are skipped without a word";

    KVPreferences::shared().setValueForThisRun(true, KVPreferenceKeys::RecursivelyProcessAllFolders);
    EXPECT_FALSE(add("Films"));
    KVPreferences::shared().setValueForThisRun(false, KVPreferenceKeys::RecursivelyProcessAllFolders);
    EXPECT_TRUE(observer->takeDiscs().contains(url("Films/Other/VIDEO_TS")));
    EXPECT_TRUE(add("Films/VIDEO_TS"));
    EXPECT_TRUE(observer->takeDiscs().isEmpty()) << "a disc that is added needs no offer";
}

TEST_F(KVFileIntakeTest, RefusesProtectedFilesWithAnAlert) {
    KVTestMedia::make({"-f", "lavfi", "-i", "sine=duration=0.2", "-f", "mp4", path("song.aax")});
    EXPECT_FALSE(add("song.aax"));
    EXPECT_TRUE(queued(audio).isEmpty());
    ASSERT_EQ(questions->alerts.size(), 1U);
    EXPECT_EQ(questions->alerts[0].messageText,
              "Kalvora cannot convert 'song.aax' because it is DRM-encrypted.");
    EXPECT_EQ(questions->alerts[0].informativeText, "Sorry, but Kalvora cannot remove DRM protection.");
    EXPECT_EQ(observer->kindFor("song.aax"), Kind::isProtected);
}

class KVSeveralTracksTest : public KVFileIntakeTest {
  protected:
    void SetUp() override {
        KVFileIntakeTest::SetUp();
        KVTestMedia::make({"-f",
                           "lavfi",
                           "-i",
                           "testsrc2=size=64x48:duration=0.2",
                           "-f",
                           "lavfi",
                           "-i",
                           "sine=duration=0.2",
                           "-f",
                           "lavfi",
                           "-i",
                           "sine=duration=0.2",
                           "-map",
                           "0",
                           "-map",
                           "1",
                           "-map",
                           "2",
                           "-c:a",
                           "pcm_s16le",
                           "-ac:a:1",
                           "2",
                           "-metadata:s:a:0",
                           "language=eng",
                           path("two.mkv")});
    }
    std::optional<qint64> selectedTrack() const {
        const auto file = firstFile<KVVideoFile>(video);
        return file && file->selectedAudioTrack ? std::optional(file->selectedAudioTrack->trackNumber)
                                                : std::nullopt;
    }
};

TEST_F(KVSeveralTracksTest, TakesTheTrackThatTheUserSelects) {
    questions->alertResponses.push_back({KVAlertResponse::firstButtonReturn, false, 1});
    EXPECT_TRUE(add("two.mkv"));
    EXPECT_EQ(selectedTrack(), 2);
    ASSERT_EQ(questions->alerts.size(), 1U);
    const KVAlert &alert = questions->alerts[0];
    EXPECT_EQ(alert.messageText,
              "File 'two.mkv' has more than one audio track. Please select the one you wish "
              "to convert.");
    EXPECT_EQ(alert.buttons, QStringList({"Select", "Skip File"}));
    ASSERT_EQ(alert.accessoryItems.size(), 2);
    EXPECT_EQ(alert.accessoryItems[0], "1: eng (1) (pcm_s16le) - 0 kbit/s, 1 channels");
    EXPECT_EQ(alert.accessoryItems[1], "2: Track 2 (2) (pcm_s16le) - 1 kbit/s, 2 channels");
}

TEST_F(KVSeveralTracksTest, TakesNoTrackWithoutASelectedItem) {
    questions->alertResponses.push_back({KVAlertResponse::firstButtonReturn, false, std::nullopt});
    EXPECT_TRUE(add("two.mkv"));
    EXPECT_FALSE(selectedTrack());
}

TEST_F(KVSeveralTracksTest, DropsAFileThatTheUserSkips) {
    questions->alertResponses.push_back({KVAlertResponse::firstButtonReturn + 1, false, 1});
    EXPECT_FALSE(add("two.mkv"));
    EXPECT_TRUE(queued(video).isEmpty());
    EXPECT_EQ(observer->kindFor("two.mkv"), Kind::skipped);
}

TEST_F(KVSeveralTracksTest, KeepsTheFirstWhereNobodyCanBeAskedAndAsksNotForWhatIsChosen) {
    EXPECT_TRUE(add("two.mkv"));
    EXPECT_EQ(selectedTrack(), 1);
    EXPECT_EQ(questions->alerts.size(), 1U);

    KVConversionQueue::queue(video)->setConversions({});
    observer->chosenTrack = 2;
    EXPECT_TRUE(add("two.mkv"));
    EXPECT_EQ(selectedTrack(), 2);
    KVConversionQueue::queue(video)->setConversions({});
    observer->chosenTrack = 7;
    EXPECT_FALSE(add("two.mkv"));
    EXPECT_EQ(questions->alerts.size(), 1U);
    EXPECT_EQ(observer->kindFor("two.mkv"), Kind::unsuitable);
}

/// Several files with two tracks each, "eng" and one without a language.
class KVSeveralFilesWithTracksTest : public KVSeveralTracksTest {
  protected:
    void SetUp() override {
        KVSeveralTracksTest::SetUp();
        QDir(path()).mkdir("in");
        for (const char *name : {"in/1.mkv", "in/2.mkv", "in/3.mkv"})
            ASSERT_TRUE(QFile::copy(path("two.mkv"), path(name)));
    }
    QList<QUrl> files() const { return {url("in/1.mkv"), url("in/2.mkv"), url("in/3.mkv")}; }
    static QList<qint64> selectedTracks() {
        QList<qint64> tracks;
        for (const auto &conversion : KVConversionQueue::queue(video)->conversions()) {
            const auto files = conversion->mediaFiles();
            const auto file = std::static_pointer_cast<KVVideoFile>(files.first());
            tracks += file->selectedAudioTrack ? file->selectedAudioTrack->trackNumber : -1;
        }
        return tracks;
    }
    QStringList boxes() const {
        QStringList titles;
        for (const KVAlert &alert : questions->alerts)
            titles += alert.suppressionTitle.value_or("none");
        return titles;
    }
};

TEST_F(KVSeveralFilesWithTracksTest, AsksOnceForAllFilesOfADrop) {
    tone("sound.wav");
    questions->alertResponses.push_back({KVAlertResponse::firstButtonReturn, true, 1});
    EXPECT_TRUE(intake.addFiles(QList<QUrl>{url("sound.wav")} + files()));
    EXPECT_EQ(selectedTracks(), (QList<qint64>{2, 2, 2}));
    EXPECT_EQ(boxes(), QStringList{"Use for all 3 files"});
    EXPECT_EQ(questions->alerts[0].escapeButton, 1) << "Escape skips the file";

    // Another drop asks again, and for the last file there is nothing to hold for all.
    KVConversionQueue::queue(video)->setConversions({});
    questions->alerts.clear();
    EXPECT_TRUE(intake.addFiles(files()));
    EXPECT_EQ(boxes(), (QStringList{"Use for all 3 files", "Use for all 2 files", "none"}));
    EXPECT_EQ(selectedTracks(), (QList<qint64>{1, 1, 1}));
}

TEST_F(KVSeveralFilesWithTracksTest, SkipsAllFilesOfADropOnRequest) {
    questions->alertResponses.push_back({KVAlertResponse::firstButtonReturn + 1, true, 0});
    EXPECT_FALSE(intake.addFiles(files()));
    EXPECT_EQ(questions->alerts.size(), 1U);
    EXPECT_TRUE(queued(video).isEmpty());
    EXPECT_EQ(observer->refusals().size(), 3U);
    EXPECT_EQ(observer->kindFor("3.mkv"), Kind::skipped);
}

TEST_F(KVSeveralFilesWithTracksTest, TheChoiceHoldsForFolderMembersThatLoadInTheBackground) {
    tones({"w1.wav", "w2.wav", "w3.wav", "w4.wav"});
    intake.addFiles({url("w1.wav"), url("w2.wav"), url("w3.wav"), url("w4.wav")});
    questions->alertResponses.push_back({KVAlertResponse::firstButtonReturn, true, 1});
    EXPECT_FALSE(add("in"));
    EXPECT_TRUE(intake.waitUntilLoaded(60));
    EXPECT_EQ(selectedTracks(), (QList<qint64>{2, 2, 2}));
    EXPECT_EQ(boxes(), QStringList{"Use for all 3 files"});
}

TEST_F(KVFileIntakeTest, FindsSubtitlesBesideAVideo) {
    clip("movie.mkv");
    write("movie.de.srt", "");
    write("movie.srt", "");
    clip("other.mkv");
    write(
        "other.en.srt",
        "1\n00:00:00,000 --> 00:00:01,000\n\xc4\xee\xe1\xf0\xee \xef\xee\xe6\xe0\xeb\xee\xe2\xe0\xf2\xfc.\n");
    write("another.SRT", "");
    EXPECT_TRUE(intake.addFiles({url("movie.mkv"), url("other.mkv")}));
    const auto conversions = KVConversionQueue::queue(video)->conversions();
    ASSERT_EQ(conversions.size(), 2);
    const auto subtitles = [&](qsizetype index) {
        const auto files = conversions[index]->mediaFiles();
        return std::static_pointer_cast<KVVideoFile>(files.first())->subtitlesFileURL;
    };
    EXPECT_EQ(subtitles(0), url("movie.srt"));
    EXPECT_EQ(subtitles(1), url("other.en.srt"));
    const auto files = conversions[1]->mediaFiles();
    EXPECT_EQ(std::static_pointer_cast<KVVideoFile>(files.first())->subtitlesFileEncoding, "windows-1251");
}

/// A tool that tells of damaged sample data in every file but a repaired one.
constexpr auto toolThatMisreads = R"(
case "$*" in
*_fix*) track='pcm_s16be (twos / 0x736F7774), 44100 Hz, 2 channels, s16, 1411 kb/s' ;;
*) track='twos / 0x736F7774, 44100 Hz, 2 channels, 1411 kb/s' ;;
esac
echo "  Duration: 00:00:00.20, start: 0.000000, bitrate: 1411 kb/s" >&2
echo "  Stream #0:0: Audio: $track" >&2
echo "  Stream #0:1: Audio: $track" >&2
exit 1
)";

TEST_F(KVFileIntakeTest, RepairsDamagedSoundOnTheSecondButtonAlone) {
    const QByteArray original = read(tone("song.aiff"));
    const KVStandInTool tool(path("tool"), toolThatMisreads);

    questions->alertResponses.push_back({KVAlertResponse::firstButtonReturn, false, std::nullopt});
    EXPECT_FALSE(add("song.aiff"));
    EXPECT_TRUE(questions->savePanels.empty());
    ASSERT_EQ(questions->alerts.size(), 1U) << "one alert for a file with two such tracks";
    EXPECT_EQ(questions->alerts[0].messageText,
              "This audio file seems to be corrupted. Do you wish to fix it?");
    EXPECT_EQ(questions->alerts[0].buttons, QStringList({"Fix...", "Cancel"}));

    questions->alertResponses.push_back({KVAlertResponse::firstButtonReturn + 1, false, std::nullopt});
    questions->savePanelResponses.push_back(url("song_fix.aiff"));
    EXPECT_FALSE(add("song.aiff")) << "the damaged file itself does not enter";
    EXPECT_EQ(queued(audio), QStringList("song_fix.aiff"));
    EXPECT_EQ(questions->alerts.size(), 3U) << "the copy has two tracks to choose from";
    EXPECT_EQ(read(path("song.aiff")), original);
}

TEST_F(KVFileIntakeTest, ChangesNothingAboutDamagedSoundWhereNobodyCanBeAsked) {
    tone("song.aiff");
    const KVStandInTool tool(path("tool"), toolThatMisreads);
    EXPECT_FALSE(add("song.aiff"));
    EXPECT_TRUE(queued(audio).isEmpty());
    EXPECT_FALSE(QFile::exists(path("song_fix.aiff")));
    EXPECT_EQ(observer->kindFor("song.aiff"), Kind::damaged);
}

TEST_F(KVFileIntakeTest, CanBeCancelledWhileAQuestionWaitsInTheBackground) {
    tones({"a.wav", "b.wav", "c.wav"});
    intake.addFilesInBackground({url("a.wav"), url("b.wav"), url("c.wav")});
    EXPECT_TRUE(runUntil([] { return !queued(audio).isEmpty(); }));
    intake.cancelLoading();
    EXPECT_TRUE(intake.waitUntilLoaded(30));
    const qsizetype count = queued(audio).size();
    EXPECT_LE(count, 2) << "what was being looked at may still enter";
    EXPECT_FALSE(add("c.wav"));
}

TEST_F(KVFileIntakeTest, EndsTheProgramThatLooksAtAFileWhenItIsCancelled) {
    const KVStandInTool tool(path("tool"), "case \"$*\" in *-h*) exit 0;; esac\n"
                                           "echo >\"$here/started\"; exec sleep 300\n");
    intake.addFilesInBackground({QUrl::fromLocalFile(write("a.wav", "sound"))});
    for (int look = 0; look < 500 && !QFile::exists(tool.path("started")); ++look)
        runUntil([] { return false; }, 0.02);
    ASSERT_TRUE(QFile::exists(tool.path("started")));
    intake.cancelLoading();
    EXPECT_TRUE(intake.waitUntilLoaded(10));
    EXPECT_TRUE(observer->refusals().empty()) << "nothing is wrong with the file";
}

TEST_F(KVFileIntakeTest, MergesWhatWaitsInEachQueueIntoOne) {
    tones({"a.wav", "b.wav", "c.wav"});
    clip("v.mkv");
    intake.addFiles({url("a.wav"), url("v.mkv"), url("b.wav"), url("c.wav")});
    intake.mergeAll();
    const auto conversions = KVConversionQueue::queue(audio)->conversions();
    ASSERT_EQ(conversions.size(), 1);
    QStringList names;
    for (const auto &file : conversions.first()->mediaFiles())
        names += file->url().fileName();
    EXPECT_EQ(names, QStringList({"a.wav", "b.wav", "c.wav"}));
    EXPECT_EQ(queued(video), QStringList("v.mkv"));
}

} // namespace
