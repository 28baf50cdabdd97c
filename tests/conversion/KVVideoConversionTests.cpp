#include "conversion/conversions/KVDVDAuthoringDocument.h"
#include "conversion/conversions/KVDVDAuthoringProgress.h"
#include "conversion/conversions/KVDVDConversion.h"
#include "core/KVHistoryCenter.h"
#include "platform/KVScriptedQuestions.h"
#include "presets/video/other/KVDVDPreset.h"
#include "support/KVEngineTestCase.h"
#include "support/KVTestMedia.h"
#include "support/KVTestProbe.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVTempDirectory.h"
#include "video_info/media_file/KVDVDFile.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QProcess>

namespace {

/// Scripts in the place of the disc tools write down how they were called: `author` and `image` hold the
/// arguments, `environment` what the first one saw, `authored.xml` the description.
class KVVideoConversionTest : public KVEngineTestCase {
  protected:
    void SetUp() override {
        KVEngineTestCase::SetUp();
        setTools("exit 0", "exit 0");
        preset = std::make_shared<KVDVDPreset>();
        preset->name = preset->defaultName();
        KVUserQuestion::setResponder(questions);
    }
    void TearDown() override {
        EXPECT_TRUE(KVConversionQueue::cancelAllAndWait(5));
        videoQueue()->setConversions({});
        KVUserQuestion::setResponder(nullptr);
        KVEngineTestCase::TearDown();
    }

    void setTools(const QByteArray &authorEnd, const QByteArray &imageEnd) {
        const QByteArray folder = path().toUtf8();
        writeScript("resources/dvdauthor",
                    "cd '" + folder + "'; echo \"author $$\" >>runs; env >environment\n" +
                        "printf '%s\\n' \"$@\" >author; cp \"$2\" authored.xml\n" + authorEnd + "\n");
        writeScript("resources/mkisofs", "printf '%s\\n' \"$@\" >'" + folder +
                                             "/image'; echo \"image $$\" >>'" + folder +
                                             "/runs'\nprintf partial >\"$5\"\n" + imageEnd + "\n");
    }

    std::shared_ptr<KVConversionQueue> videoQueue() const {
        return KVConversionQueue::queue(KVMediaFileType::video);
    }
    std::shared_ptr<KVVideoFile> video(const QString &name) const {
        auto file = std::make_shared<KVVideoFile>(QUrl::fromLocalFile(write(name, "video")));
        file->seconds = 10;
        KVVideoTrack track;
        track.framesPerSecond = 25;
        track.width = 720;
        track.height = 576;
        file->videoTracks = {track};
        file->selectedVideoTrack = track;
        return file;
    }
    std::shared_ptr<KVVideoConversion> addDisc(const KVMediaFileList &files) const {
        const auto row = videoQueue()->createConversion(files.first(), preset, true);
        row->setMediaFiles(files);
        return std::dynamic_pointer_cast<KVVideoConversion>(row);
    }
    void runVideoToEnd() {
        videoQueue()->start();
        ASSERT_TRUE(runUntil([&] {
            const auto rows = videoQueue()->conversions();
            return std::ranges::all_of(rows, [](const auto &row) { return row->isFinished(); });
        }));
    }
    std::shared_ptr<KVConversion> convertFolder(const QUrl &folder, const QString &discName = {}) {
        const auto discs = KVConversionQueue::queue(KVMediaFileType::dvd);
        const auto row = discs->createConversion(std::make_shared<KVDVDFile>(folder), preset, false);
        if (!discName.isEmpty()) std::dynamic_pointer_cast<KVDVDConversion>(row)->setDVDName(discName);
        discs->startConversion(row);
        EXPECT_TRUE(runUntil([&] { return row->isFinished(); }));
        return row;
    }
    QStringList lines(const QString &name) const {
        return QString::fromUtf8(read(path(name))).split('\n', Qt::SkipEmptyParts);
    }
    /// What runs have left of their folders.
    static QStringList leftFolders() {
        return QDir(KVTempDirectoryPath()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    }

    std::shared_ptr<KVDVDPreset> preset;
    std::shared_ptr<KVScriptedQuestions> questions = std::make_shared<KVScriptedQuestions>();
};

TEST_F(KVVideoConversionTest, MakesAnImageThatHoldsAPlayableDisc) {
    useRealTool();
    const auto film = [&](const QString &name, const QString &colour) {
        KVTestMedia::make({"-f", "lavfi", "-i", "color=" + colour + ":size=160x120:duration=0.6", "-f",
                           "lavfi", "-i", "sine=duration=0.6", path(name)});
        return KVMediaFile::mediaFile(url(name)).value();
    };
    const auto row = addDisc({film("50% of \"Ünder\".mov", "red"), film("b & c.mkv", "blue")});
    EXPECT_EQ(row->numberOfTasks(), 4);
    runVideoToEnd();

    ASSERT_TRUE(row->conversionWasSuccessful) << (errors.empty() ? "" : errors[0].taskOutput.toStdString());
    EXPECT_EQ(row->outputURL(), url("50% of \"Ünder\".iso"));
    EXPECT_EQ(row->statusString(), "Done.");
    EXPECT_EQ(KVHistoryCenter::shared().historyItems().last().type, KVMediaFileType::dvd);
    EXPECT_EQ(KVHistoryCenter::shared().historyItems().last().url, row->outputURL());
    QProcess listing;
    listing.start("isoinfo", {"-f", "-i", row->outputURL()->toLocalFile()});
    ASSERT_TRUE(listing.waitForFinished());
    const QString content = listing.readAllStandardOutput();
    for (const char *name : {"VIDEO_TS.IFO", "VIDEO_TS.BUP", "VTS_01_0.IFO", "VTS_01_0.BUP", "VTS_01_1.VOB"})
        EXPECT_TRUE(content.contains("/VIDEO_TS/" + QString(name))) << content.toStdString();

    QProcess extraction;
    extraction.setStandardOutputFile(path("title.vob"));
    extraction.start("isoinfo", {"-i", row->outputURL()->toLocalFile(), "-x", "/VIDEO_TS/VTS_01_1.VOB;1"});
    ASSERT_TRUE(extraction.waitForFinished());
    // A point for each frame: all of the one film, then all of the other.
    const QByteArray points = KVTestProbe::outputOf(
        "ffmpeg", {"-v", "error", "-nostdin", "-i", path("title.vob"), "-an", "-vsync", "passthrough", "-vf",
                   "scale=1:1", "-pix_fmt", "rgb24", "-f", "rawvideo", "-"});
    QByteArray colours;
    for (qsizetype i = 0; i + 2 < points.size(); i += 3)
        colours += uchar(points[i]) > 200 ? 'r' : uchar(points[i + 2]) > 200 ? 'b' : '?';
    EXPECT_EQ(colours, QByteArray(15, 'r') + QByteArray(15, 'b'));
}

TEST_F(KVVideoConversionTest, CallsTheDiscToolsAsTheyWantIt) {
    const auto row = addDisc({video("good one.mov"), video("good two.avi")});
    row->setDVDName("My Film é");
    runVideoToEnd();
    EXPECT_TRUE(row->conversionWasSuccessful);
    const auto author = lines("author");
    ASSERT_EQ(author.size(), 4);
    const QString folder = author[3].section('/', 0, -2);
    EXPECT_EQ(author, (QStringList{"-x", author[1], "-o", folder + "/MY_FILM__"}));
    EXPECT_TRUE(author[1].startsWith(folder + '/') && author[1].endsWith(".xml"));
    const auto environment = lines("environment").filter("VIDEO_FORMAT");
    EXPECT_EQ(environment, QStringList("VIDEO_FORMAT=PAL"));
    EXPECT_EQ(lines("environment").filter("HOME="), QStringList());
    EXPECT_EQ(lines("image"), (QStringList{"-dvd-video", "-V", "MY_FILM__", "-o", path("My Film é.iso"),
                                           folder + "/MY_FILM__"}));
    const QString document = QString::fromUtf8(read(path("authored.xml")));
    EXPECT_EQ(document.count("<pgc>"), 2);
    EXPECT_TRUE(document.contains("file=\"" + folder + "/good one.vob\""));
    EXPECT_TRUE(document.contains("chapters=\"0,0:05:00,"));
}

TEST_F(KVVideoConversionTest, PutsTheTitlesIntoTheOrderOfTheRow) {
    const QStringList names{"good.Take 2.mov", "good.Take 10.mov", "b/good.same.mov", "a/good.same.mov"};
    KVMediaFileList films;
    for (const QString &name : names) {
        const auto film = video(name);
        films += film;
        film->seconds = double(films.size());
    }
    const auto row = addDisc(films);
    row->setDVDName("AC/DC");
    runVideoToEnd();
    const QString folder = lines("author").value(3).section('/', 0, -2);
    const auto document = QString::fromUtf8(read(path("authored.xml")));
    QStringList titles;
    for (qsizetype at = 0; (at = document.indexOf("file=\"", at)) >= 0; ++at)
        titles += document.mid(at).section('"', 1, 1).sliced(folder.size() + 1);
    EXPECT_EQ(titles,
              (QStringList{"good.Take 2.vob", "good.Take 10.vob", "good.same.vob", "good.same.DVD.00.vob"}));
    EXPECT_EQ(row->outputURL(), url("AC-DC.iso"));
}

TEST_F(KVVideoConversionTest, ChoosesTheTelevisionStandardByTheFrameRate) {
    struct Row {
        double framerate;
        bool prefersNTSC;
        const char *standard;
    };
    const std::vector<Row> rows{
        {25, true, "PAL"}, {29.97, false, "NTSC"}, {0, true, "NTSC"}, {0, false, "PAL"}};
    for (const Row &row : rows) {
        KVPreferences::shared().setBoolean(row.prefersNTSC, KVPreferenceKeys::UsesNTSCFormat);
        preset->framerate = row.framerate;
        addDisc({video("good.mov")});
        runVideoToEnd();
        EXPECT_TRUE(lines("environment").contains("VIDEO_FORMAT=" + QString(row.standard))) << row.framerate;
    }
    KVPreferences::shared().setValue({}, KVPreferenceKeys::UsesNTSCFormat);
}

TEST_F(KVVideoConversionTest, EndsAtTheFirstTaskThatFails) {
    const auto converting = addDisc({video("good.mov"), video("failing.mov"), video("good2.mov")});
    EXPECT_EQ(converting->numberOfTasks(), 5);
    runVideoToEnd();
    EXPECT_EQ(converting->currentSubtask, 1);
    EXPECT_EQ(lines("runs").size(), 2);
    EXPECT_EQ(errors.size(), 0u); // the first file's success hides it from the error centre
    ASSERT_TRUE(converting->failure());
    EXPECT_TRUE(converting->failure()->taskOutput.contains("boom"));
    EXPECT_FALSE(converting->hasSucceeded());
    EXPECT_EQ(converting->estimatedTimeString(), "Error converting.");

    setTools("echo 'ERR: no vob' >&2; exit 1", "exit 0");
    const auto authoring = addDisc({video("good.mov")});
    runVideoToEnd();
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].taskOutput, "ERR: no vob\n");
    EXPECT_EQ(errors[0].taskArguments.first(), "-x");
    EXPECT_EQ(authoring->statusString(), "Putting files together");

    setTools("exit 0", "echo 'mkisofs: No space left on device' >&2; exit 28");
    const auto imaging = addDisc({video("good.mov")});
    runVideoToEnd();
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ(errors[1].terminationStatus, 28);
    EXPECT_EQ(imaging->statusString(), "Error converting.");
    for (const auto &row : {converting, authoring, imaging}) {
        EXPECT_TRUE(row->hasFailed());
        EXPECT_TRUE(row->conversionWasSuccessful); // from the first file
    }
    EXPECT_EQ(QDir(path()).entryList({"*.iso"}), QStringList());
    EXPECT_GE(leftFolders().size(), 3); // of use to whoever looks for the cause
    KVCleanTempDirectory();
    EXPECT_EQ(leftFolders(), QStringList());
}

TEST_F(KVVideoConversionTest, SeesACancelBetweenTheDiscTasksAndEndsToolsWhenQuitting) {
    setTools("while [ ! -e go ]; do sleep 0.02; done", "exit 0");
    const auto row = addDisc({video("good.mov")});
    videoQueue()->start();
    const int author = pidOf("author");
    EXPECT_FALSE(row->pause());
    row->cancel();
    EXPECT_TRUE(isAlive(author));
    write("go", "");
    ASSERT_TRUE(runUntil([&] { return row->isFinished(); }));
    EXPECT_FALSE(QFile::exists(path("image")));

    setTools("exit 0", "trap '' INT; exec sleep 300");
    addDisc({video("good.mov")});
    videoQueue()->start();
    const int image = pidOf("image");
    EXPECT_TRUE(KVConversionQueue::cancelAllAndWait(2));
    EXPECT_FALSE(isAlive(image));
    EXPECT_EQ(QDir(path()).entryList({"*.iso"}), QStringList());
    EXPECT_EQ(errors.size(), 0u);
}

TEST_F(KVVideoConversionTest, NamesImagesSoThatNothingIsOverwritten) {
    struct Row {
        QString disc;
        QString volume;
        QString image;
    };
    const std::vector<Row> rows{{"X", "X", "X 02.iso"},
                                {"50%", "50_", "50% 01.iso"},
                                {"%@ of %i", "___OF__I", "1 of (null) (null).iso"},
                                {QString(40, 'a'), QString(32, 'A'), QString(40, 'a') + " 01.iso"},
                                {QString(251, 'b'), QString(32, 'B'), QString(248, 'b') + " 01.iso"}};
    write("X 01.iso", "mine");
    for (const Row &row : rows) {
        write(row.disc + ".iso", "mine");
        const auto conversion = convertFolder(url("disc"), row.disc);
        EXPECT_EQ(conversion->outputURL(), url(row.image));
        EXPECT_EQ(lines("image"),
                  (QStringList{"-dvd-video", "-V", row.volume, "-o", path(row.image), path("disc")}));
        EXPECT_EQ(read(path(row.disc + ".iso")), "mine");
    }
}

TEST_F(KVVideoConversionTest, AsksForAnotherPlaceWhereItCannotWrite) {
    const auto refused = convertFolder(url("nowhere/Film.2"));
    EXPECT_EQ(refused->statusString(), "User cancelled.");
    EXPECT_FALSE(refused->conversionWasSuccessful);
    ASSERT_EQ(questions->savePanels.size(), 1u);
    EXPECT_EQ(questions->savePanels[0].proposedName, "Film.iso");
    EXPECT_EQ(questions->savePanels[0].allowedExtensions, QStringList("iso"));
    questions->savePanelResponses.push_back(url("chosen.iso"));
    EXPECT_EQ(convertFolder(url("nowhere/Film.2"))->outputURL(), url("chosen.iso"));

    KVPreferences::shared().setBoolean(false, KVPreferenceKeys::SaveToSourceFolder);
    EXPECT_EQ(convertFolder(url("disc"))->statusString(), "User cancelled.");
    questions->openPanelResponses.push_back({url("")});
    EXPECT_EQ(convertFolder(url("disc"))->outputURL(), url("disc.iso"));
    KVPreferences::shared().setValue({}, KVPreferenceKeys::SaveToSourceFolder);
    EXPECT_EQ(questions->openPanels.size(), 2u);
    EXPECT_EQ(errors.size(), 0u);
}

TEST_F(KVVideoConversionTest, LeavesTheImageThatItWasToReplaceUnlessItWasWrittenTo) {
    write("old.iso", "the user's");
    for (const bool isToolThere : {false, true}) {
        if (isToolThere)
            setTools("exit 0", "exit 1");
        else
            writeScript("resources/mkisofs", "exit 1");
        questions->savePanelResponses.push_back(url("old.iso"));
        EXPECT_TRUE(convertFolder(url("nowhere/Film"))->hasFailed());
        EXPECT_EQ(QFile::exists(path("old.iso")), !isToolThere);
    }
}

TEST_F(KVVideoConversionTest, RefusesToMergeAVideoWithoutAFrameSize) {
    const auto film = video("good.mov");
    const auto sizeless = video("good.sizeless.mov");
    sizeless->selectedVideoTrack->width = 0;
    const auto row = videoQueue()->createConversion(film, KVPreset::presetNamed("MP4"), true);
    row->setMediaFiles({film, sizeless});
    runVideoToEnd();
    EXPECT_TRUE(row->hasFailed());
    ASSERT_TRUE(row->failure());
    EXPECT_TRUE(row->failure()->reason.contains("good.sizeless.mov"));
    EXPECT_EQ(row->failureCause()->text, row->failure()->reason);
    EXPECT_FALSE(row->failureCause()->remedy.isEmpty());
    EXPECT_EQ(QDir(path()).entryList({"*.mp4"}), QStringList());
    EXPECT_FALSE(QFile::exists(path("runs")));
}

TEST_F(KVVideoConversionTest, NamesTheDiscToolThatIsMissing) {
    QFile::remove(path("resources/mkisofs"));
    QFile::link(path("nothing"), path("resources/mkisofs"));
    const auto conversion = convertFolder(url("disc"));
    EXPECT_FALSE(conversion->conversionWasSuccessful);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].terminationStatus, 127);
    EXPECT_TRUE(errors[0].taskOutput.contains("genisoimage"));
    EXPECT_FALSE(QFile::exists(path("disc.iso")));
}

TEST_F(KVVideoConversionTest, SaysThatSubtitlesArePreparedForAMoment) {
    const auto file = video("endless.mov");
    const auto row = videoQueue()->createConversion(file, nullptr, true);
    EXPECT_EQ(row->numberOfTasks(), 1);
    file->subtitlesFileURL = url("endless.srt");
    write("endless.srt", "1\n00:00:00,000 --> 00:00:01,000\nWords\n");
    videoQueue()->appendDelegate(recorder);
    videoQueue()->start();
    EXPECT_TRUE(runUntil([&] { return recorder->statusUpdates > 0; }));
    EXPECT_EQ(recorder->statusTexts.first(), "Preparing subtitles...");
    EXPECT_TRUE(waitFor([&] { return row->statusString().isEmpty(); }));
}

TEST_F(KVVideoConversionTest, WarnsOfSubtitlesThatJoinedFilesLose) {
    const auto first = video("good.1.mov");
    const auto second = video("good.2.mov");
    second->setSubtitles(QUrl::fromLocalFile(write("2.srt", "1\n00:00:00,000 --> 00:00:01,000\nWords\n")));
    const auto conversion = videoQueue()->createConversion(first, nullptr, true);
    conversion->setMediaFiles({first, second});
    videoQueue()->start();
    ASSERT_TRUE(runUntil([&] { return conversion->isFinished() && !videoQueue()->isWorking(); }));
    EXPECT_TRUE(conversion->warnings().contains("The subtitles " + path("2.srt") +
                                                " were left out, since several files were joined."));
}

TEST_F(KVVideoConversionTest, ReadsTheProgressOfAuthoring) {
    QFile large(path("large.vob"));
    ASSERT_TRUE(large.open(QFile::WriteOnly) && large.resize(100 * 1048576));
    KVDVDAuthoringProgress progress;
    EXPECT_EQ(progress.value("STAT: VOBU 16 at 2MB, 0:00:05"), 0.0);
    EXPECT_EQ(progress.value("STAT: Processing /nowhere.vob...\n"), std::nullopt);
    EXPECT_EQ(progress.value("STAT: VOBU 16 at 2MB, 1 PGCs"), 0.0);
    EXPECT_EQ(progress.value("INFO\nSTAT: Processing " + path("large.vob") + "...\n"), std::nullopt);
    EXPECT_EQ(progress.currentFileSize, 100);
    EXPECT_EQ(progress.value("STAT: VOBU 900 at 50MB"), 0.75);
    EXPECT_EQ(progress.value("STAT: VOBU 900"), std::nullopt);
    EXPECT_EQ(progress.value("STAT: fixing VOBU at 10MB (100/1000, 10%)"), 0.55);
    EXPECT_EQ(progress.value("STAT: fixing VOBU"), std::nullopt);
    EXPECT_EQ(progress.value("INFO: STAT: VOBU 900 at 50MB"), std::nullopt);
    EXPECT_EQ(progress.value("STAT: Processing x"), std::nullopt); // cut short
}

TEST(KVDVDAuthoringDocumentTest, DescribesADiscOfAnyFiles) {
    const QString chapters = KVDVDAuthoringDocument::chapters();
    EXPECT_EQ(chapters.size(), 1826);
    EXPECT_TRUE(chapters.startsWith("0,0:05:00,0:10:00,0:15:00,"));
    EXPECT_TRUE(chapters.endsWith(",17:50:00,17:55:00,18:00:00"));
    const QString empty = QString::fromUtf8(KVDVDAuthoringDocument::forFiles({})).simplified();
    EXPECT_TRUE(empty.endsWith("<dvdauthor> <vmgm /> <titleset> <titles /> </titleset> </dvdauthor>"));
    const QUrl hostile = QUrl::fromLocalFile("/a \"b\" <c> & 'ü'\n.vob");
    EXPECT_TRUE(QString::fromUtf8(KVDVDAuthoringDocument::forFiles({hostile}))
                    .contains("file=\"/a &quot;b&quot; &lt;c> &amp; 'ü'&#10;.vob\""));
}

} // namespace
