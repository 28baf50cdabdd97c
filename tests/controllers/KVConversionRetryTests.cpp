#include "controllers/KVConversionRetry.h"
#include "controllers/KVConversionTableRow.h"
#include "controllers/KVEndedConversion.h"
#include "platform/KVScriptedQuestions.h"
#include "presets/KVPreset.h"
#include "support/KVTestCase.h"
#include "video_info/media_file/KVVideoFile.h"

namespace {

QStringList titlesOf(const KVMenu &menu) {
    QStringList titles;
    for (const KVMenuItem &item : menu)
        titles += item.isSeparator ? "-" : item.title;
    return titles;
}

} // namespace

/// Of what a further try is made; that it runs is tested with the window.
class KVConversionRetryTest : public KVTestCase {
  protected:
    void SetUp() override { queue->setConversions({}); }
    void TearDown() override { KVConversionQueue::cancelAllAndWait(5); }

    std::shared_ptr<KVVideoFile> file(const QString &name) {
        const auto file = std::make_shared<KVVideoFile>(url(name));
        file->subtitlesFileURL = url(name + ".srt");
        return file;
    }

    std::shared_ptr<KVEndedConversion> failed(const KVMediaFileList &files) {
        return KVEndedConversion::run(files, KVEndedConversion::Failure{.reason = "Nothing goes."});
    }

    std::shared_ptr<KVConversionQueue> queue = KVConversionQueue::queue(KVMediaFileType::video);
};

TEST_F(KVConversionRetryTest, TakesThePlaceTheFilesAndTheNamesOfTheFailedRow) {
    const auto first = failed({file("first.mkv")});
    const auto middle = KVEndedConversion::make({file("a.mkv"), file("b.mkv")},
                                                KVEndedConversion::Failure{.reason = "Nothing goes."});
    const auto last = failed({file("last.mkv")});
    middle->setCustomPreset(KVPreset::presetNamed("MKV"));
    middle->setOutputFileName("Both");
    middle->setDVDName("Disc");
    middle->setDestinationFolder(url("elsewhere"));
    middle->start();

    const auto again = KVRetryConversion(middle);
    ASSERT_TRUE(again);
    EXPECT_EQ(queue->conversions(), (KVConversionQueue::List{first, again, last}));
    EXPECT_EQ(again->mediaFiles(), middle->mediaFiles());
    EXPECT_EQ(again->customPreset(), KVPreset::presetNamed("MKV"));
    EXPECT_EQ(again->outputFileName(), "Both");
    EXPECT_EQ(std::static_pointer_cast<KVVideoConversion>(again)->dvdName(), "Disc");
    EXPECT_EQ(again->destinationFolder(), url("elsewhere"));
    EXPECT_TRUE(std::static_pointer_cast<KVVideoFile>(again->mediaFiles().first())->subtitlesFileURL);
    EXPECT_EQ(KVRetryConversion(middle), nullptr) << "its place is taken";
}

TEST_F(KVConversionRetryTest, KeepsThePresetThatHasRun) {
    const auto conversion = failed({file("a.mkv")});
    const auto used = queue->selectedPreset();
    queue->setSelectedPreset(KVPreset::presetNamed("MKV"));
    ASSERT_NE(used->name, "MKV");
    const auto again = KVRetryConversion(conversion);
    ASSERT_TRUE(again && again->customPreset());
    EXPECT_EQ(again->customPreset()->name, used->name);
    queue->setSelectedPreset(used);
}

TEST_F(KVConversionRetryTest, OffersWhatHelps) {
    const auto done = KVEndedConversion::run({file("a.mkv")});
    const KVConversionTableRow doneRow(done, nullptr);
    EXPECT_EQ(titlesOf(doneRow.menu()), (QStringList{"Remove and Add Again to Queue", "Remove", "-"}));
    doneRow.tryAgain();
    EXPECT_EQ(queue->conversions(), KVConversionQueue::List{done});

    const KVConversionTableRow row(failed({file("b.mkv")}), nullptr);
    EXPECT_EQ(titlesOf(row.menu()),
              (QStringList{"Try Again", "-", "Remove and Add Again to Queue", "Remove", "-", "Details..."}));
}

TEST_F(KVConversionRetryTest, GoesWithoutSubtitlesOrIntoTheChosenFolder) {
    const auto questions = std::make_shared<KVScriptedQuestions>();
    KVUserQuestion::setResponder(questions);
    const auto conversion = failed({file("a.mkv")});
    const KVConversionTableRow row(conversion, nullptr);
    row.tryAgainInAnotherFolder(); // without an answer nothing happens
    EXPECT_EQ(queue->conversions(), KVConversionQueue::List{conversion});
    EXPECT_EQ(questions->openPanels.size(), 1);
    EXPECT_FALSE(questions->openPanels.front().canChooseFiles);

    questions->openPanelResponses.push_back({url("elsewhere")});
    row.tryAgainInAnotherFolder();
    ASSERT_EQ(queue->conversions().size(), 1);
    EXPECT_EQ(queue->conversions().first()->destinationFolder(), url("elsewhere"));

    const auto other = failed({file("b.mkv")});
    KVConversionTableRow(other, nullptr).tryAgainWithoutSubtitles();
    const auto again = queue->conversions().last();
    EXPECT_NE(again, other);
    EXPECT_FALSE(std::static_pointer_cast<KVVideoFile>(again->mediaFiles().first())->subtitlesFileURL);
    KVUserQuestion::setResponder(nullptr);
}
