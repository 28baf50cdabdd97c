#include "controllers/KVRowSelection.h"
#include "conversion/conversions/KVVideoConversion.h"
#include "core/KVUndoStack.h"
#include "platform/KVScriptedQuestions.h"
#include "presets/KVPreset.h"
#include "support/KVTestCase.h"
#include "util/KVPreferenceKeys.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QMap>

namespace {

class Services : public KVConversionRowServices {
  public:
    void addFiles(const QList<QUrl> &urls) override { added += urls; }
    void showInFileManager(const QUrl &url) override { shown = url; }
    void showDetails(const std::shared_ptr<KVConversion> &) override {}
    std::optional<QString> chooseSubtitleEncoding(const KVVideoFile &, const QUrl &) override {
        return encoding;
    }

    QList<QUrl> added;
    QUrl shown;
    std::optional<QString> encoding;
};

/// The menu on one line: "Start, Rename..., -, Remove".
QString line(const KVMenu &menu) {
    QStringList titles;
    for (const KVMenuItem &item : menu)
        titles += item.isSeparator ? "-" : item.title;
    return titles.join(", ");
}

const KVMenuItem &itemNamed(const KVMenu &menu, const QString &title) {
    const auto item = std::ranges::find(menu, title, &KVMenuItem::title);
    EXPECT_NE(item, menu.end()) << title.toStdString();
    return *item;
}

} // namespace

class KVConversionTableRowTest : public KVTestCase {
  protected:
    void SetUp() override { KVUserQuestion::setResponder(questions); }

    void TearDown() override {
        KVUndoStack::shared().clear();
        for (const auto &queue : KVConversionQueue::allQueues())
            queue->setConversions({});
    }

    std::shared_ptr<KVConversion> video(const QString &name) {
        return KVConversionQueue::queue(KVMediaFileType::video)
            ->createConversion(std::make_shared<KVVideoFile>(url(name)), nullptr, true);
    }

    KVConversionTableRow row(const std::shared_ptr<KVConversion> &conversion) {
        return {conversion, services};
    }

    std::shared_ptr<Services> services = std::make_shared<Services>();
    std::shared_ptr<KVScriptedQuestions> questions = std::make_shared<KVScriptedQuestions>();
};

TEST_F(KVConversionTableRowTest, TheMenuFollowsTheState) {
    const auto conversion = video("a.mkv");
    EXPECT_EQ(line(row(conversion).menu()),
              "Start, Rename..., -, Remove, -, Preset, -, Select Subtitles..., Make DVD");
    const auto other = video("b.mkv");
    EXPECT_EQ(line(row(conversion).menu()),
              "Start, Rename..., -, Remove, -, Preset, -, Select Subtitles..., Make DVD, -, Merge With");

    conversion->state = KVConversionState::executing;
    EXPECT_EQ(line(row(conversion).menu()), "Pause, Stop, -, Preset, -, Select Subtitles..., -, Merge With");
    conversion->state = KVConversionState::paused;
    EXPECT_TRUE(line(row(conversion).menu()).startsWith("Resume, Stop, -"));
    conversion->state = KVConversionState::finished;
    EXPECT_EQ(line(row(conversion).menu()), "Remove and Add Again to Queue, Remove, -");
    conversion->setOutputURL(url("a.mp4"));
    EXPECT_EQ(line(row(conversion).menu()), "Remove and Add Again to Queue, Remove, -, Show in Finder");
}

TEST_F(KVConversionTableRowTest, AWaitingRowNamesItsSubtitlesAndWarnings) {
    const auto conversion = video("a.mkv");
    EXPECT_EQ(row(conversion).statusText(), "Waiting to start...");
    const auto file = std::static_pointer_cast<KVVideoFile>(conversion->mediaFiles().first());
    file->setSubtitles(url("a.srt"), "windows-1251");
    file->warnings.append("A page is lost.");
    const QString notes = QStringLiteral("Subtitles: a.srt (windows-1251)%1A page is lost.");
    EXPECT_EQ(row(conversion).statusText(), "Waiting to start... \u00b7 " + notes.arg(" \u00b7 "));
    EXPECT_EQ(row(conversion).toolTip(), path("a.mkv") + "\n" + notes.arg("\n"));
    row(conversion).removeSubtitles();
    EXPECT_EQ(row(conversion).statusText(), "Waiting to start... \u00b7 A page is lost.");
    conversion->state = KVConversionState::paused;
    EXPECT_EQ(row(conversion).statusText(), "Paused");
}

TEST_F(KVConversionTableRowTest, OnlyPresetsThatStitchAreOffered) {
    const auto conversion = video("a.mkv");
    const KVMenu presets = itemNamed(row(conversion).menu(), "Preset").submenu;
    EXPECT_TRUE(presets.front().isOn);
    EXPECT_EQ(presets.front().title, "Default");
    EXPECT_TRUE(line(presets).contains("MP4"));
    EXPECT_FALSE(line(presets).contains("GIF Animation"));

    itemNamed(presets, "MKV").action();
    EXPECT_EQ(conversion->customPreset(), KVPreset::presetNamed("MKV"));
    EXPECT_EQ(row(conversion).title(), "a.mkv [MKV] ");
}

TEST_F(KVConversionTableRowTest, RunningConversionsAreCancelledOnlyAfterTheQuestion) {
    const auto conversion = video("a.mkv");
    const auto queue = KVConversionQueue::queue(KVMediaFileType::video);
    conversion->state = KVConversionState::executing;
    const int keep = KVAlertResponse::firstButtonReturn;

    // "Don't ask again" counts only together with the cancel.
    questions->alertResponses.push_back({.returnCode = keep, .isSuppressed = true});
    row(conversion).stopButtonAction(true);
    EXPECT_EQ(queue->conversions().size(), 1);
    const auto &asks = KVPreferenceKeys::RequiresConfirmationOfConversionCancelation;
    EXPECT_TRUE(KVPreferences::shared().boolean(asks, true));

    questions->alertResponses.push_back({.returnCode = keep + 1, .isSuppressed = true});
    row(conversion).stopButtonAction(true);
    EXPECT_TRUE(queue->conversions().isEmpty());
    EXPECT_FALSE(KVPreferences::shared().boolean(asks, true));
    EXPECT_EQ(questions->alerts.front().messageText,
              "The conversion of 'a.mkv' is still in progress. Do you wish to cancel?");
}

TEST_F(KVConversionTableRowTest, StopButtonAndAccessibleTextFollowTheState) {
    const auto conversion = video("a.mkv");
    struct Row {
        KVConversionState state;
        const char *title;
        const char *withOption;
        const char *accessible;
    };
    for (const Row &expected :
         {Row{KVConversionState::waitingToStart, "Remove", "Remove", "Conversion a.mkv. Waiting to start."},
          Row{KVConversionState::executing, "Pause", "Stop", "Conversion a.mkv. 25% - --"},
          Row{KVConversionState::paused, "Resume", "Stop", "Conversion a.mkv. Paused."},
          Row{KVConversionState::finished, "Stop", "Stop", "Conversion a.mkv. Finished"}}) {
        conversion->state = expected.state;
        conversion->progressOfCurrentTask = 0.25;
        conversion->estimatedTime = -1;
        EXPECT_EQ(row(conversion).stopButtonTitle(false), expected.title);
        EXPECT_EQ(row(conversion).stopButtonTitle(true), expected.withOption);
        EXPECT_EQ(row(conversion).accessibleText(), expected.accessible);
    }
}

TEST_F(KVConversionTableRowTest, SubtitlesAreSetOnlyWithAChosenEncoding) {
    const auto conversion = video("a.mkv");
    const auto file = std::static_pointer_cast<KVVideoFile>(conversion->mediaFiles().first());
    row(conversion).setSubtitles(url("a.srt"));
    EXPECT_FALSE(file->subtitlesFileURL);
    services->encoding = "windows-1251";
    row(conversion).setSubtitles(url("a.srt"));
    EXPECT_EQ(file->subtitlesFileURL, url("a.srt"));
    EXPECT_EQ(file->subtitlesFileEncoding, "windows-1251");
    EXPECT_TRUE(line(row(conversion).menu()).contains("Replace Subtitles..., Remove Subtitles..."));
    row(conversion).removeSubtitles();
    EXPECT_FALSE(file->subtitlesFileURL);
}

TEST_F(KVConversionTableRowTest, MergedFilesCanBeTakenOutAgain) {
    const auto a = video("a.mkv");
    video("b.mkv");
    video("c.mkv");
    row(a).mergeWithAllConversions();
    ASSERT_EQ(a->mediaFiles().size(), 3);
    EXPECT_EQ(row(a).title(), "a.mkv & b.mkv & c.mkv");
    row(a).removeFile(a->mediaFiles().at(1));
    EXPECT_EQ(row(a).title(), "a.mkv & c.mkv");
    EXPECT_TRUE(line(row(a).menu()).contains("Remove File, Split Again"));
    row(a).splitAgain();
    EXPECT_EQ(row(a).title(), "a.mkv");
    EXPECT_EQ(KVConversionQueue::queue(KVMediaFileType::video)->conversions().size(), 2);
}

TEST_F(KVConversionTableRowTest, ARunningRowKeepsItsCommandsButRefusesToChange) {
    const auto conversion = video("a.mkv");
    video("b.mkv");
    conversion->setMediaFiles(conversion->mediaFiles() +
                              KVMediaFileList{std::make_shared<KVVideoFile>(url("c.mkv"))});
    const QStringList changing{"Preset", "Select Subtitles...", "Merge With", "Remove File", "Split Again"};
    for (const QString &title : changing)
        EXPECT_TRUE(itemNamed(row(conversion).menu(), title).isEnabled) << title.toStdString();
    for (const auto state : {KVConversionState::executing, KVConversionState::paused}) {
        conversion->state = state;
        const KVMenu menu = row(conversion).menu();
        for (const QString &title : changing) {
            EXPECT_FALSE(itemNamed(menu, title).isEnabled) << title.toStdString();
            EXPECT_TRUE(itemNamed(menu, title).toolTip.startsWith("This conversion is "))
                << title.toStdString();
        }
        EXPECT_TRUE(itemNamed(menu, "Stop").isEnabled);
    }
}

TEST_F(KVConversionTableRowTest, AMenuThatWasOpenWhenItsRowStartedAsksAndExplains) {
    const auto conversion = video("a.mkv");
    video("b.mkv");
    const KVMenu menu = row(conversion).menu();
    KVPreferences::shared().setBoolean(true, KVPreferenceKeys::RequiresConfirmationOfConversionCancelation);
    conversion->state = KVConversionState::executing;
    itemNamed(menu, "Remove").action(); // the default answer lets it go on
    ASSERT_EQ(questions->alerts.size(), 1U);
    EXPECT_TRUE(questions->alerts.back().messageText.contains("is still in progress"));
    EXPECT_EQ(KVConversionQueue::queue(KVMediaFileType::video)->conversions().size(), 2);

    const QString reason =
        "This conversion is running. Its files, subtitles and preset can no longer be changed.";
    questions->textPromptResponses.push_back("Name");
    itemNamed(menu, "Rename...").action();
    EXPECT_EQ(questions->alerts.back().messageText, reason);
    questions->alerts.clear();
    itemNamed(itemNamed(menu, "Preset").submenu, "MKV").action();
    ASSERT_EQ(questions->alerts.size(), 1U);
    EXPECT_EQ(questions->alerts.back().messageText, reason);
    itemNamed(itemNamed(menu, "Merge With").submenu, "b.mkv").action();
    EXPECT_EQ(questions->alerts.back().messageText, "Only waiting conversions can be merged.");
    EXPECT_EQ(row(conversion).title(), "a.mkv");
}

TEST_F(KVConversionTableRowTest, MergingIsOfferedOnlyWhereThePresetCanMerge) {
    const auto conversion = video("a.mkv");
    video("b.mkv");
    const auto queue = KVConversionQueue::queue(KVMediaFileType::video);
    const auto selected = queue->selectedPreset();
    queue->setSelectedPreset(KVPreset::presetNamed("GIF Animation"));
    EXPECT_EQ(itemNamed(row(conversion).menu(), "Merge With").toolTip,
              "The preset \"GIF Animation\" cannot merge several files into one.");
    row(conversion).mergeWithAllConversions();
    EXPECT_EQ(queue->conversions().size(), 2);

    // A merged row with a preset that can merge does not fall back on the queue's.
    row(conversion).selectPreset(KVPreset::presetNamed("MKV"));
    row(conversion).mergeWithAllConversions();
    EXPECT_EQ(row(conversion).title(), "a.mkv & b.mkv [MKV] ");
    EXPECT_FALSE(itemNamed(row(conversion).menu(), "Preset").submenu.front().isEnabled);
    row(conversion).selectPreset(nullptr);
    EXPECT_EQ(row(conversion).title(), "a.mkv & b.mkv [MKV] ");
    queue->setSelectedPreset(selected);
}

TEST_F(KVConversionTableRowTest, MoreThanFiveFilesAreMergedOnlyAfterAQuestion) {
    const auto first = video("0.mkv");
    for (int number = 1; number < 6; ++number)
        video(QString::number(number) + ".mkv");
    row(first).mergeWithAllConversions(); // no answer is prepared: the one that changes nothing
    EXPECT_EQ(first->mediaFiles().size(), 1);
    ASSERT_EQ(questions->alerts.size(), 1U);
    EXPECT_EQ(questions->alerts.back().messageText, "Do you want to merge 6 files into one?");
    questions->alertResponses.push_back({.returnCode = KVAlertResponse::firstButtonReturn});
    row(first).mergeWithAllConversions();
    EXPECT_EQ(first->mediaFiles().size(), 6);
}

TEST_F(KVConversionTableRowTest, ASelectionOffersWhatItsRowsCanDo) {
    const auto a = video("a.mkv");
    const auto b = video("b.mkv");
    const auto c = video("c.mkv");
    const auto sound = KVConversionQueue::queue(KVMediaFileType::audio)
                           ->createConversion(std::make_shared<KVAudioFile>(url("a.wav")), nullptr, true);
    using enum KVConversionState;
    struct Row {
        KVRowSelection::List rows;
        KVConversionState stateOfB;
        const char *menu;
        const char *reasonAgainstPreset;
        const char *reasonAgainstMerge;
    };
    for (const Row &expected :
         {Row{{a, b}, waitingToStart, "Start, -, Remove, -, Preset, -, Merge", "", ""},
          Row{{a, b},
              executing,
              "Start, Pause, -, Stop and Remove, -, Preset, -, Merge",
              "",
              "Only waiting conversions can be merged."},
          Row{{a, sound},
              waitingToStart,
              "Start, -, Remove, -, Preset, -, Merge",
              "The selected conversions are of different media types.",
              "Only conversions of one media type can be merged."},
          Row{{b, a, c},
              finished,
              "Start, Try Again, Remove and Add Again to Queue, -, Remove, -, Preset, -, Merge",
              "",
              "Only waiting conversions can be merged."}}) {
        b->state = expected.stateOfB;
        const KVMenu menu = KVRowSelection(expected.rows, services).menu();
        EXPECT_EQ(line(menu), expected.menu);
        EXPECT_EQ(itemNamed(menu, "Preset").toolTip, expected.reasonAgainstPreset);
        EXPECT_EQ(itemNamed(menu, "Merge").toolTip, expected.reasonAgainstMerge);
    }
    // Rows that run keep the commands, disabled.
    a->state = b->state = executing;
    const KVMenu running = KVRowSelection({a, b}, services).menu();
    EXPECT_EQ(line(running), "Pause, -, Stop and Remove, -, Preset, -, Merge");
    EXPECT_TRUE(itemNamed(running, "Preset").toolTip.startsWith("This conversion is running."));
    a->state = waitingToStart;
    // The preset goes to the rows that still can have it.
    b->state = executing;
    itemNamed(itemNamed(KVRowSelection({a, b, c}, services).menu(), "Preset").submenu, "MKV").action();
    EXPECT_EQ(row(a).title() + row(b).title() + row(c).title(), "a.mkv [MKV] b.mkvc.mkv [MKV] ");
    // One question for all that run.
    a->state = executing;
    KVPreferences::shared().setBoolean(true, KVPreferenceKeys::RequiresConfirmationOfConversionCancelation);
    KVRowSelection({a, b, c}, services).remove();
    ASSERT_FALSE(questions->alerts.empty());
    EXPECT_EQ(questions->alerts.back().messageText,
              "2 conversions are still in progress. Do you wish to stop them?");
    EXPECT_EQ(KVConversionQueue::queue(KVMediaFileType::video)->conversions().size(), 3);
}

TEST_F(KVConversionTableRowTest, ADiscKeepsItsNameWhereTheNewOneIsEmpty) {
    const auto conversion = std::static_pointer_cast<KVVideoConversion>(video("a.mkv"));
    row(conversion).makeDVD();
    EXPECT_TRUE(line(row(conversion).menu()).contains("Change DVD Name..."));
    questions->textPromptResponses.push_back("   ");
    row(conversion).changeDVDName();
    EXPECT_EQ(questions->alerts.back().messageText, "The name must not be empty.");
    questions->textPromptResponses.push_back("  Film ");
    row(conversion).changeDVDName();
    EXPECT_EQ(conversion->dvdName(), "Film");
}

TEST_F(KVConversionTableRowTest, ANewNameStaysInTheFolderAndAnEmptyOneIsNone) {
    const auto conversion = video("a.mkv");
    questions->textPromptResponses = {"../Loud/Quiet", std::nullopt, ""};
    row(conversion).renameConversion();
    EXPECT_EQ(questions->textPrompts.back().defaultValue, "a");
    EXPECT_EQ(row(conversion).title(), "..-Loud-Quiet");
    row(conversion).renameConversion();
    EXPECT_EQ(row(conversion).title(), "..-Loud-Quiet");
    row(conversion).renameConversion();
    EXPECT_EQ(conversion->outputFileName(), std::nullopt);
    EXPECT_EQ(row(conversion).title(), "a.mkv");
}

TEST_F(KVConversionTableRowTest, AFinishedConversionCanRunAgain) {
    const auto conversion = video("a.mkv");
    conversion->state = KVConversionState::finished;
    row(conversion).removeConversionAndReadd();
    EXPECT_EQ(KVUndoStack::shared().title(), "Remove and Add Again");
    EXPECT_TRUE(KVConversionQueue::queue(KVMediaFileType::video)->conversions().isEmpty());
    EXPECT_TRUE(runUntil([&] { return !services->added.isEmpty(); }));
    EXPECT_EQ(services->added, QList<QUrl>{url("a.mkv")});
}
