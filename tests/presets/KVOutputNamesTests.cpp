#include "kvcore/KVBookmark.h"
#include "platform/KVScriptedQuestions.h"
#include "presets/KVPresetTestCase.h"
#include "presets/audio/KVAudioPresets.h"
#include "util/KVOutputClaim.h"
#include "util/KVPreferenceKeys.h"

#include <QFileInfo>

namespace {

/// A preset that keeps the extension of its source.
class SameExtensionPreset : public KVFLACPreset {
  public:
    QString defaultName() const override { return "Same"; }
    std::optional<QString> pathExtension() const override { return std::nullopt; }
};

} // namespace

class KVOutputNamesTest : public KVPresetTestCase {
  protected:
    void SetUp() override {
        KVPresetTestCase::SetUp();
        KVUserQuestion::setResponder(questions);
        QDir().mkdir(path("out"));
    }
    void TearDown() override {
        KVUserQuestion::setResponder(nullptr);
        QFile::setPermissions(path("out"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// Names in "out" that tasks for the same file get one after the other, each of them kept.
    QStringList names(const std::shared_ptr<KVPreset> &preset, const QString &source, int count) {
        QStringList names;
        for (int i = 0; i < count; ++i) {
            const auto made = preset->taskForConversionOfFiles({audioFile(source)}, url("out"));
            if (!made) return names;
            made->claim->keep();
            names.append(QFileInfo(made->outputURL.toLocalFile()).fileName());
        }
        return names;
    }

    const std::shared_ptr<KVScriptedQuestions> questions = std::make_shared<KVScriptedQuestions>();
    const std::shared_ptr<KVPreset> mp3 = KVPreset::make<KVMP3Preset>();
    const std::shared_ptr<KVPreset> same = KVPreset::make<SameExtensionPreset>();
};

TEST_F(KVOutputNamesTest, CountsUpFromTheSecondFileOn) {
    EXPECT_EQ(names(mp3, "/in/a.b.wav", 3), (QStringList{"a.b.mp3", "a.b.MP3.00.mp3", "a.b.MP3.01.mp3"}));
    EXPECT_EQ(names(same, "/in/x.mkv", 2), (QStringList{"x.mkv", "x.Same.00.mkv"}));
    EXPECT_EQ(names(same, "/in/README", 2), (QStringList{"README", "README.Same.00"}));
    EXPECT_EQ(names(mp3, "/in/.hidden", 1), (QStringList{".hidden.mp3"}));
    EXPECT_EQ(names(mp3, "/in/-50% \"é\n.wav", 1), (QStringList{"-50% \"é\n.mp3"}));
}

TEST_F(KVOutputNamesTest, KeepsAPresetNameInsideTheFileName) {
    mp3->name = "../%i/mine";
    EXPECT_EQ(names(mp3, "/in/a.wav", 2), (QStringList{"a.mp3", "a...-%i-mine.00.mp3"}));
}

TEST_F(KVOutputNamesTest, CutsANameThatTheFileSystemWouldRefuse) {
    const QString longBase = QString("é").repeated(125) + "abc"; // 253 bytes
    const QStringList made = names(mp3, "/in/" + longBase + ".x", 2);
    ASSERT_EQ(made.size(), 2);
    EXPECT_EQ(made[0], longBase.first(longBase.size() - 2) + ".mp3");
    EXPECT_EQ(made[1], QString("é").repeated(122) + ".MP3.00.mp3");
    for (const QString &name : made)
        EXPECT_TRUE(QFile::exists(path("out/" + name)));
}

TEST_F(KVOutputNamesTest, TakesADestinationThatIsNoFolderAsItIs) {
    const auto made = mp3->taskForConversionOfFiles({audioFile("/in/a.wav")}, url("out/b.xyz"));
    ASSERT_TRUE(made);
    EXPECT_EQ(made->outputURL, url("out/b.xyz"));
    const auto second = mp3->taskForConversionOfFiles({audioFile("/in/c.wav")}, url("out/b.xyz"));
    ASSERT_TRUE(second);
    EXPECT_EQ(second->outputURL, url("out/b.MP3.00.mp3")) << "a running conversion holds its name";
}

TEST_F(KVOutputNamesTest, RemovesWhatWasWrittenUnlessItIsKept) {
    auto made = mp3->taskForConversionOfFiles({audioFile("/in/a.wav")}, url("out"));
    ASSERT_TRUE(made);
    EXPECT_TRUE(QFile::exists(path("out/a.mp3")));
    made.reset();
    EXPECT_FALSE(QFile::exists(path("out/a.mp3")));
}

TEST_F(KVOutputNamesTest, FallsBackToTheStoredFolder) {
    const auto song = audioFile("/in/clip.avi");
    EXPECT_EQ(mp3->outputURLForFiles({song}, {}), QUrl::fromLocalFile("/in/clip.avi/clip.avi.mp3"));
    KVPreferences::shared().setBoolean(false, KVPreferenceKeys::SaveToSourceFolder);
    EXPECT_FALSE(mp3->outputURLForFiles({song}, {}));
    EXPECT_FALSE(mp3->taskForConversionOfFiles({song}, {}));
    KVAppScopeBookmarksManager::setURL(url("out"), KVPreferenceKeys::FixedDestinationBookmark);
    EXPECT_EQ(mp3->outputURLForFiles({song}, {}), url("out/clip.avi.mp3"));
}

TEST_F(KVOutputNamesTest, ForetellsTheOutputWithoutTouchingTheDisk) {
    write("out/a.mp3", "mine");
    EXPECT_EQ(mp3->outputURLForFiles({audioFile("/in/a.wav")}, url("out")), url("out/a.MP3.00.mp3"));
    EXPECT_EQ(QDir(path("out")).entryList(QDir::Files), (QStringList{"a.mp3"}));
}

TEST_F(KVOutputNamesTest, MakesNoTaskOfNoArguments) {
    const KVMediaFileList files{std::make_shared<KVMediaFile>(QUrl::fromLocalFile("/in/a.bin"))};
    EXPECT_FALSE(mp3->taskForConversionOfFiles(files, url("out")));
    EXPECT_TRUE(QDir(path("out")).isEmpty());
}

TEST_F(KVOutputNamesTest, AsksForAnotherFolderUntilItCanWriteThere) {
    QDir().mkdir(path("good"));
    write("good/a.mp3", "mine");
    questions->openPanelResponses = {{url("missing")}, {url("missing")}, {url("good")}};
    const auto made = mp3->taskForConversionOfFiles({audioFile("/in/a.wav")}, url("gone/a.mp3"));
    ASSERT_TRUE(made);
    EXPECT_EQ(made->outputURL, url("good/a.MP3.00.mp3"));
    EXPECT_EQ(made->task->arguments().last(), path("good/a.MP3.00.mp3"));
    EXPECT_EQ(read(path("good/a.mp3")), "mine");
    ASSERT_EQ(questions->openPanels.size(), 3U);
    EXPECT_EQ(questions->openPanels[0].message, "Please, select a destination for conversion:");
    EXPECT_TRUE(questions->openPanels[0].canChooseFolders);
    EXPECT_FALSE(questions->openPanels[0].canChooseFiles);

    questions->openPanelResponses = {{}};
    EXPECT_FALSE(mp3->taskForConversionOfFiles({audioFile("/in/a.wav")}, url("gone/a.mp3")));
}
