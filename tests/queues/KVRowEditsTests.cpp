#include "conversion/conversions/KVVideoConversion.h"
#include "core/KVUndoStack.h"
#include "queues/KVRowEdits.h"
#include "support/KVTestCase.h"
#include "video_info/media_file/KVPictureFile.h"
#include "video_info/media_file/KVVideoFile.h"

#include <functional>

namespace {

KVRowEdits &edits() {
    return KVRowEdits::shared();
}

KVUndoStack &undoStack() {
    return KVUndoStack::shared();
}

} // namespace

class KVRowEditsTest : public KVTestCase {
  protected:
    void SetUp() override {
        undoStack().clear();
        for (const char *name : {"a.mkv", "b.mkv", "c.mkv", "d.mkv"})
            rows += queue->createConversion(std::make_shared<KVVideoFile>(url(name)), nullptr, true);
    }

    void TearDown() override {
        undoStack().clear();
        for (const auto &each : KVConversionQueue::allQueues())
            each->setConversions({});
    }

    /// All rows of the queue with their choices: "a+b [MKV] =Name, c".
    QString state() const {
        QStringList texts;
        for (const auto &row : queue->conversions()) {
            QStringList names;
            for (const auto &file : row->mediaFiles()) {
                const auto video = std::static_pointer_cast<KVVideoFile>(file);
                QString name = video->url().fileName().chopped(4);
                if (video->subtitlesFileURL) name += "/" + video->subtitlesFileEncoding;
                names += name;
            }
            QString text = names.join("+");
            if (const auto preset = row->customPreset()) text += " [" + preset->name + "]";
            if (const auto name = row->outputFileName()) text += " =" + *name;
            if (row->isFinished()) text += " done";
            texts += text;
        }
        return texts.join(", ");
    }

    std::shared_ptr<KVConversionQueue> queue = KVConversionQueue::queue(KVMediaFileType::video);
    KVRowEdits::Rows rows;
};

TEST_F(KVRowEditsTest, EveryEditIsUndone) {
    edits().setSubtitles(rows[1], url("b.srt"), "windows-1251");
    edits().setOutputFileName(rows[2], "Name");
    edits().setPreset({rows[2]}, KVPreset::presetNamed("MKV"));
    const QString before = "a, b/windows-1251, c [MKV] =Name, d";
    ASSERT_EQ(state(), before);

    struct Case {
        const char *title;
        std::function<void()> edit;
        const char *after;
    };
    const std::vector<Case> cases{
        {"Merge",
         [&] {
             edits().merge({rows[2], rows[0], rows[1]});
         },
         "c+a+b/windows-1251 [MKV] =Name, d"},
        {"Merge All", [&] { edits().mergeAll(); }, "a+b/windows-1251+c+d"},
        {"Make DVD",
         [&] {
             edits().makeDVD({rows[0], rows[2]});
         },
         "a+c [DVD], b/windows-1251, d"},
        {"Remove",
         [&] {
             edits().remove({rows[3], rows[0], rows[2]});
         },
         "b/windows-1251"},
        {"Clear", [&] { edits().clear(queue->conversions()); }, ""},
        {"Change of Preset", [&] { edits().setPreset(queue->conversions(), KVPreset::presetNamed("MP4")); },
         "a [MP4], b/windows-1251 [MP4], c [MP4] =Name, d [MP4]"},
        {"Change of Subtitles", [&] { edits().setSubtitles(rows[1], std::nullopt); },
         "a, b, c [MKV] =Name, d"},
        {"Rename", [&] { edits().setOutputFileName(rows[2], "Other"); },
         "a, b/windows-1251, c [MKV] =Other, d"},
        {"Move",
         [&] {
             edits().move({rows[3], rows[1]}, 0);
         },
         "b/windows-1251, d, a, c [MKV] =Name"},
        {"Move", [&] { edits().move({rows[0]}, 4); }, "b/windows-1251, c [MKV] =Name, d, a"},
    };
    for (const Case &each : cases) {
        rows = queue->conversions(); // undoing makes new ones
        each.edit();
        EXPECT_EQ(state(), each.after) << each.title;
        EXPECT_EQ(undoStack().title(), each.title);
        EXPECT_TRUE(undoStack().undo()) << each.title;
        EXPECT_EQ(state(), before) << each.title;
    }
}

TEST_F(KVRowEditsTest, UndoBringsBackTheWarningOfSubtitlesThatAreNotUsed) {
    const auto video = std::static_pointer_cast<KVVideoFile>(rows[0]->mediaFiles().first());
    video->setUnreadableSubtitles(url("a.srt"));
    const QStringList warnings = video->warnings;
    ASSERT_EQ(warnings.size(), 1);
    edits().setSubtitles(rows[0], url("a.srt"), "windows-1251");
    EXPECT_EQ(video->warnings, QStringList());
    EXPECT_TRUE(undoStack().undo());
    EXPECT_EQ(video->warnings, warnings);
    EXPECT_EQ(video->unreadableSubtitlesURL(), url("a.srt"));
    EXPECT_FALSE(video->subtitlesFileURL);
    edits().remove({rows[0]});
    EXPECT_TRUE(undoStack().undo());
    EXPECT_EQ(video->warnings, warnings) << "once";
}

TEST_F(KVRowEditsTest, StepsAreUndoneOneAfterTheOtherThroughRowsThatWereMadeAnew) {
    edits().merge({rows[0], rows[1]});
    edits().splitAgain(rows[0]);
    ASSERT_EQ(state(), "a, b, c, d");
    edits().merge({rows[0], queue->conversions().at(1), rows[2]});
    edits().removeFile(rows[0], rows[0]->mediaFiles().at(1));
    edits().setOutputFileName(rows[0], "Name");
    edits().remove({rows[0], rows[3]});
    QStringList states{state()};
    while (undoStack().canUndo()) {
        EXPECT_TRUE(undoStack().undo()) << undoStack().title().toStdString();
        states += state();
    }
    EXPECT_EQ(states, (QStringList{"", "a+c =Name, d", "a+c, d", "a+b+c, d", "a, b, c, d", "a+b, c, d",
                                   "a, b, c, d"}));
}

TEST_F(KVRowEditsTest, RowsReturnToTheirPlacesAmongThoseThatCameAndWent) {
    edits().remove({rows[1], rows[2]});
    queue->createConversion(std::make_shared<KVVideoFile>(url("e.mkv")), nullptr, true);
    queue->cancelConversion(rows[0]);
    EXPECT_TRUE(undoStack().undo());
    EXPECT_EQ(state(), "b, c, d, e");
}

TEST_F(KVRowEditsTest, AnEndedRowReturnsAsItWasAndARunningOneWaits) {
    rows[0]->state = KVConversionState::finished;
    rows[1]->state = KVConversionState::executing;
    edits().remove({rows[0], rows[1]});
    EXPECT_TRUE(rows[1]->isCancelled());
    EXPECT_EQ(undoStack().message(), "2 conversions removed");
    EXPECT_TRUE(undoStack().undo());
    EXPECT_EQ(state(), "a done, b, c, d");
    EXPECT_EQ(queue->conversions().at(0), rows[0]);
    EXPECT_TRUE(queue->conversions().at(1)->canBeChanged());
    EXPECT_FALSE(queue->conversions().at(1)->isCancelled());
}

TEST_F(KVRowEditsTest, AddingAgainIsUndoneAsAWhole) {
    rows[1]->state = rows[2]->state = KVConversionState::finished;
    edits().removeToAddAgain({rows[1], rows[2]});
    EXPECT_EQ(state(), "a, d");
    EXPECT_EQ(undoStack().message(), "");
    for (const char *name : {"b.mkv", "e.mkv"})
        queue->createConversion(std::make_shared<KVVideoFile>(url(name)), nullptr, true);
    EXPECT_TRUE(undoStack().undo());
    EXPECT_EQ(state(), "a, b done, c done, d, e") << "the new row of b goes, c could not be added again";
}

TEST_F(KVRowEditsTest, AFileTakenFromARowThatHasStartedComesBackAsARow) {
    edits().setPreset({rows[0]}, KVPreset::presetNamed("MKV"));
    edits().merge({rows[0], rows[1]});
    edits().removeFile(rows[0], rows[0]->mediaFiles().at(1));
    rows[0]->state = KVConversionState::executing;
    EXPECT_TRUE(undoStack().undo());
    EXPECT_EQ(state(), "a [MKV], b [MKV], c, d");
    EXPECT_FALSE(undoStack().undo()) << "the merge";
    EXPECT_EQ(state(), "a [MKV], b [MKV], c, d");
}

TEST_F(KVRowEditsTest, WhatHasStartedIsNeitherChangedNorUndone) {
    edits().merge({rows[0], rows[1]});
    rows[0]->isReserved = true; // a worker has claimed it
    EXPECT_FALSE(edits().merge({rows[2], rows[0]}));
    EXPECT_FALSE(edits().merge({rows[0], rows[2]}));
    EXPECT_FALSE(edits().makeDVD({rows[0], rows[2]}));
    EXPECT_FALSE(edits().splitAgain(rows[0]));
    EXPECT_FALSE(edits().removeFile(rows[0], rows[0]->mediaFiles().first()));
    EXPECT_FALSE(edits().setPreset({rows[0]}, KVPreset::presetNamed("MKV")));
    EXPECT_FALSE(edits().setSubtitles(rows[0], url("a.srt"), "UTF-8"));
    EXPECT_FALSE(edits().setOutputFileName(rows[0], "Name"));
    EXPECT_FALSE(undoStack().undo()) << "both files are in the row that runs";
    EXPECT_EQ(state(), "a+b, c, d");
}

TEST_F(KVRowEditsTest, OnlyWhatThePresetCanMergeIsMerged) {
    const auto pictures = KVConversionQueue::queue(KVMediaFileType::picture);
    KVRowEdits::Rows images;
    for (const char *name : {"p.png", "q.png", "r.png"})
        images += pictures->createConversion(std::make_shared<KVPictureFile>(url(name)), nullptr, true);
    EXPECT_FALSE(edits().merge(images));
    EXPECT_FALSE(edits().makeDVD(images));
    EXPECT_FALSE(edits().merge({rows[0], images[0]}));

    const auto gif = KVPreset::presetNamed("GIF Animation");
    EXPECT_TRUE(edits().setPreset({rows[0]}, gif));
    EXPECT_FALSE(edits().merge({rows[0], rows[1]}));
    EXPECT_TRUE(edits().merge({rows[1], rows[0]})) << "the preset of the first row counts";
    EXPECT_FALSE(edits().setPreset({rows[1]}, gif));
    EXPECT_TRUE(KVRowEdits::breaksMerges(*queue, *gif));
    EXPECT_TRUE(edits().mergeAll());
    EXPECT_EQ(state(), "b+a+c+d");
    EXPECT_EQ(pictures->conversions().size(), 3);
}
