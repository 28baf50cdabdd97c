#include "core/KVHistoryCenter.h"
#include "core/KVUndoStack.h"
#include "main_ui/KVWindowTestCase.h"
#include "main_ui/main_window/KVUndoBar.h"
#include "main_ui/main_window/history/KVHistoryView.h"
#include "main_ui/main_window/table_view/KVConversionRowDelegate.h"
#include "util/KVPreferenceKeys.h"
#include "video_info/media_file/KVPictureFile.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QApplication>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <QToolTip>

#include <array>
#include <functional>
#include <random>

class KVRowEditsWindowTest : public KVWindowTestCase {
  protected:
    void SetUp() override {
        KVWindowTestCase::SetUp();
        for (const char *name : {"a.mkv", "b.mkv", "c.mkv", "d.mkv"})
            KVConversionQueue::queue(KVMediaFileType::video)
                ->createConversion(std::make_shared<KVVideoFile>(url(name)), nullptr, true);
        for (const char *name : {"p.png", "q.png"})
            KVConversionQueue::queue(KVMediaFileType::picture)
                ->createConversion(std::make_shared<KVPictureFile>(url(name)), nullptr, true);
        window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }

    void clickRow(const QString &title, Qt::KeyboardModifiers modifiers = {},
                  Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(table().viewport(), button, modifiers, table().visualRect(rowOf(title)).center());
    }

    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&table(), Qt::Key(key), modifiers);
    }

    QStringList selectedTitles() {
        QStringList titles;
        for (int row = 0; row < model().rowCount(); ++row)
            if (table().selectionModel()->isSelected(model().index(row)))
                titles += model().index(row).data().toString();
        return titles;
    }

    /// The conversions' titles without the group rows.
    QString rows() {
        QStringList rows = titles();
        rows.removeAll("Video");
        rows.removeAll("Picture");
        return rows.join(", ");
    }

    /// Opens the menu of a row as the mouse does.
    QMenu *menuOf(const QString &title) {
        click(KVConversionRowDelegate::thumbnailRect(table().visualRect(rowOf(title))).center());
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }

    static QAction *actionOf(QMenu *menu, const QString &title) {
        for (QAction *action : menu->actions())
            if (action->text() == title) return action;
        ADD_FAILURE() << title.toStdString();
        return nullptr;
    }

    /// The files of all rows, sorted.
    static QStringList files() {
        QStringList names;
        for (const auto &queue : KVConversionQueue::allQueues())
            for (const auto &row : queue->conversions())
                for (const auto &file : row->mediaFiles())
                    names += file->url().fileName();
        names.sort();
        return names;
    }

    /// One thing that a user may do with the mouse or a key, without starting anything.
    void doSomething(std::mt19937 &random) {
        const auto any = [&](int count) { return int(random() % unsigned(count)); };
        const auto anyRow = [&] { return model().index(any(model().rowCount())); };
        if (model().rowCount() == 0) return window().undo();
        constexpr std::array modifiers{Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier};
        constexpr std::array keys{Qt::Key_Delete, Qt::Key_Up, Qt::Key_Down, Qt::Key_Space};
        switch (any(6)) {
        case 0:
            return clickRow(anyRow().data().toString(), modifiers.at(size_t(any(3))));
        case 1:
        case 2:
            dragRow(anyRow(), anyRow(), any(11) / 10.0);
            return;
        case 3:
            return press(keys.at(size_t(any(4))), any(2) ? Qt::ControlModifier : Qt::NoModifier);
        case 4:
            return any(3) ? triggerAnyAction(anyRow(), any) : window().undo();
        default:
            return triggerAnyAction(anyRow(), any);
        }
    }

    void triggerAnyAction(const QModelIndex &row, const std::function<int(int)> &any) {
        if (model().isGroup(row)) return;
        QMenu *menu = menuOf(row.data().toString());
        ASSERT_TRUE(menu);
        for (const QMenu *level = menu; level;) {
            QList<QAction *> actions = level->actions();
            actions.removeIf([](const QAction *action) {
                return !action->isEnabled() || action->isSeparator() || action->text() == "Start";
            });
            QAction *action = actions.at(any(int(actions.size())));
            level = action->menu();
            if (!level) action->trigger();
        }
        menu->close();
    }

    KVUndoBar &bar() { return window().undoBar(); }
    const QString all = "a.mkv, b.mkv, c.mkv, d.mkv, p.png, q.png";
};

TEST_F(KVRowEditsWindowTest, WhatWasRemovedComesBackWithTheShortcutAndFromTheBar) {
    clickRow("b.mkv");
    press(Qt::Key_Delete);
    EXPECT_EQ(rows(), "a.mkv, c.mkv, d.mkv, p.png, q.png");
    EXPECT_TRUE(bar().isVisible());
    EXPECT_EQ(bar().message(), "1 conversion removed");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rows(), all);
    EXPECT_FALSE(bar().isVisible());

    application->clearInactiveConversionsInQueue(-1);
    ASSERT_TRUE(runUntil([&] { return window().showsDropZone(); }));
    EXPECT_EQ(bar().message(), "6 conversions removed");
    EXPECT_TRUE(bar().isVisible()) << "also over the drop zone";
    QTest::mouseClick(bar().findChild<QPushButton *>(), Qt::LeftButton);
    EXPECT_EQ(rows(), all);
    EXPECT_FALSE(window().showsDropZone());
}

TEST_F(KVRowEditsWindowTest, TheBarGoesAfterItsTimeAndTheStepStays) {
    model()
        .tableRow(rowOf("b.mkv"))
        ->mergeWithConversion(KVConversionQueue::queue(KVMediaFileType::video)->conversions().at(2));
    EXPECT_EQ(rows(), "a.mkv, b.mkv & c.mkv, d.mkv, p.png, q.png");
    EXPECT_EQ(bar().message(), "2 conversions merged into one");
    EXPECT_FALSE(runUntil([&] { return !bar().isVisible(); }, KVUndoBar::secondsShown - 1));
    EXPECT_TRUE(runUntil([&] { return !bar().isVisible(); }, 3));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rows(), all);
}

TEST_F(KVRowEditsWindowTest, AStepThatCannotBeUndoneAnyMoreIsReported) {
    const auto videos = KVConversionQueue::queue(KVMediaFileType::video)->conversions();
    model().tableRow(rowOf("a.mkv"))->mergeWithConversion(videos.at(1));
    videos.first()->isReserved = true;
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rows(), "a.mkv & b.mkv, c.mkv, d.mkv, p.png, q.png");
    EXPECT_TRUE(bar().isVisible());
    EXPECT_TRUE(bar().message().startsWith("This can no longer be undone"));
    EXPECT_FALSE(bar().findChild<QPushButton *>()->isVisible());
}

TEST_F(KVRowEditsWindowTest, RowsAreSelectedWithMouseAndKeyboardAndRemovedTogether) {
    clickRow("a.mkv");
    clickRow("c.mkv", Qt::ControlModifier);
    EXPECT_EQ(selectedTitles(), (QStringList{"a.mkv", "c.mkv"}));
    clickRow("p.png", Qt::ShiftModifier);
    EXPECT_EQ(selectedTitles(), (QStringList{"a.mkv", "c.mkv", "d.mkv", "p.png"}))
        << "without the heading between";
    clickRow("b.mkv");
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selectedTitles(), (QStringList{"b.mkv", "c.mkv"}));
    EXPECT_FALSE(window().grab().isNull());
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(rows(), "b.mkv, c.mkv, a.mkv, d.mkv, p.png, q.png");
    EXPECT_EQ(selectedTitles(), (QStringList{"b.mkv", "c.mkv"})) << "the selection goes along";
    press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(rows(), all);
    press(Qt::Key_Delete);
    EXPECT_EQ(rows(), "a.mkv, d.mkv, p.png, q.png");
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedTitles().join(", "), "a.mkv, d.mkv, p.png, q.png");
    press(Qt::Key_Delete);
    EXPECT_EQ(model().rowCount(), 0);
    while (KVUndoStack::shared().canUndo())
        window().undo();
    EXPECT_EQ(rows(), all);
}

TEST_F(KVRowEditsWindowTest, AllRowsAreSelectedAndRemovedWithoutACurrentRow) {
    ASSERT_FALSE(table().currentIndex().isValid());
    press(Qt::Key_Delete);
    EXPECT_EQ(rows(), all);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(table().rowsForCommand().conversions().size(), 6);
    press(Qt::Key_Delete);
    EXPECT_EQ(model().rowCount(), 0);
    window().undo();
    EXPECT_EQ(rows(), all);
}

TEST_F(KVRowEditsWindowTest, ADoubleClickOrAHeldKeyRemovesOneRow) {
    const QPoint button = KVConversionRowDelegate::stopRect(table().visualRect(rowOf("b.mkv"))).center();
    click(button);
    ASSERT_EQ(rows(), "a.mkv, c.mkv, d.mkv, p.png, q.png");
    QMouseEvent second(QEvent::MouseButtonDblClick, button, table().viewport()->mapToGlobal(button),
                       Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(table().viewport(), &second);
    QTest::mouseRelease(table().viewport(), Qt::LeftButton, {}, button);
    EXPECT_EQ(rows(), "a.mkv, c.mkv, d.mkv, p.png, q.png");
    click(button);
    EXPECT_EQ(rows(), "a.mkv, d.mkv, p.png, q.png");

    clickRow("a.mkv");
    for (const int key : {Qt::Key_Delete, Qt::Key_Space}) {
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
        QCoreApplication::sendEvent(&table(), &repeated);
    }
    EXPECT_EQ(rows(), "a.mkv, d.mkv, p.png, q.png");
}

TEST_F(KVRowEditsWindowTest, APictureTakesPartInSelecting) {
    const auto thumbnail = [&](const char *title) {
        return KVConversionRowDelegate::thumbnailRect(table().visualRect(rowOf(title))).center();
    };
    clickRow("a.mkv");
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::ShiftModifier, thumbnail("c.mkv"));
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::ControlModifier, thumbnail("p.png"));
    EXPECT_FALSE(QApplication::activePopupWidget());
    EXPECT_EQ(selectedTitles(), (QStringList{"a.mkv", "b.mkv", "c.mkv", "p.png"}));
}

TEST_F(KVRowEditsWindowTest, AMenuIsForAllSelectedRowsOrForTheOneThatIsNotSelected) {
    clickRow("a.mkv");
    clickRow("c.mkv", Qt::ShiftModifier);
    QMenu *menu = menuOf("b.mkv");
    ASSERT_TRUE(menu);
    actionOf(menu, "Merge")->trigger();
    menu->close();
    EXPECT_EQ(rows(), "a.mkv & b.mkv & c.mkv, d.mkv, p.png, q.png");

    clickRow("p.png");
    clickRow("q.png", Qt::ControlModifier);
    menu = menuOf("p.png");
    ASSERT_TRUE(menu);
    EXPECT_FALSE(actionOf(menu, "Merge")->isEnabled());
    EXPECT_EQ(actionOf(menu, "Merge")->toolTip(), "Pictures cannot be merged.");
    menu->close();

    menu = menuOf("d.mkv");
    ASSERT_TRUE(menu);
    EXPECT_EQ(selectedTitles(), QStringList{"d.mkv"});
    EXPECT_TRUE(actionOf(menu, "Rename..."));
    menu->close();
}

TEST_F(KVRowEditsWindowTest, TheMenuOfARunningRowShowsWhatCannotBeChangedAndWhy) {
    KVConversionQueue::queue(KVMediaFileType::video)->conversions().first()->state =
        KVConversionState::executing;
    QMenu *menu = menuOf("a.mkv");
    ASSERT_TRUE(menu);
    EXPECT_TRUE(menu->toolTipsVisible());
    for (const char *title : {"Preset", "Select Subtitles...", "Merge With"}) {
        const QAction *action = actionOf(menu, title);
        ASSERT_TRUE(action);
        EXPECT_FALSE(action->isEnabled()) << title;
        EXPECT_TRUE(action->toolTip().startsWith("This conversion is running.")) << title;
    }
    EXPECT_TRUE(actionOf(menu, "Stop")->isEnabled());
    menu->close();
}

TEST_F(KVRowEditsWindowTest, ARowIsDroppedBehindTheLastOneOfItsGroup) {
    EXPECT_TRUE(dragRow(rowOf("a.mkv"), rowOf("d.mkv"), 0.95));
    EXPECT_EQ(rows(), "b.mkv, c.mkv, d.mkv, a.mkv, p.png, q.png");
    EXPECT_TRUE(dragRow(rowOf("b.mkv"), rowOf("Picture"), 0.6));
    EXPECT_EQ(rows(), "c.mkv, d.mkv, a.mkv, b.mkv, p.png, q.png");
    EXPECT_TRUE(dragRow(rowOf("p.png"), rowOf("q.png"), 2)) << "below the last row";
    EXPECT_EQ(rows(), "c.mkv, d.mkv, a.mkv, b.mkv, q.png, p.png");
    EXPECT_FALSE(dragRow(rowOf("p.png"), rowOf("p.png"), 2)) << "it is the last one";
    EXPECT_FALSE(dragRow(rowOf("a.mkv"), rowOf("p.png"), 2)) << "behind another group";
    for (int step = 0; step < 3; ++step)
        window().undo();
    EXPECT_EQ(rows(), all);
}

TEST_F(KVRowEditsWindowTest, ADropThatCannotMergeSaysWhyBesideTheMouse) {
    EXPECT_FALSE(dragRow(rowOf("p.png"), rowOf("q.png"), 0.5));
    EXPECT_EQ(QToolTip::text(), "Pictures cannot be merged.");
    model().presetPopUpButton(KVMediaFileType::video).choosePreset(KVPreset::presetNamed("GIF Animation"));
    EXPECT_FALSE(dragRow(rowOf("a.mkv"), rowOf("b.mkv"), 0.5));
    EXPECT_EQ(QToolTip::text(), "The preset \"GIF Animation\" cannot merge several files into one.");
    const auto mergeAll = [&]() -> const QAction * {
        for (const QAction *action : window().findChildren<QAction *>())
            if (action->text() == "&Merge All") return action;
        return nullptr;
    };
    EXPECT_TRUE(runUntil([&] { return !mergeAll()->isEnabled(); }));
    EXPECT_FALSE(mergeAll()->toolTip().isEmpty());
}

TEST_F(KVRowEditsWindowTest, AFinishedRowIsRemovedByItsButtonAndComesBack) {
    const auto row = KVConversionQueue::queue(KVMediaFileType::video)->conversions().first();
    row->state = KVConversionState::finished;
    EXPECT_EQ(rowOf("a.mkv").data(KVQueueTableModel::stopTitleRole).toString(), "Stop");
    click(KVConversionRowDelegate::stopRect(table().visualRect(rowOf("a.mkv"))).center());
    EXPECT_EQ(rows(), "b.mkv, c.mkv, d.mkv, p.png, q.png");
    window().undo();
    EXPECT_EQ(rows(), all);
    EXPECT_EQ(model().tableRow(rowOf("a.mkv"))->stopButtonTitle(false), "Stop");
}

TEST_F(KVRowEditsWindowTest, AClearedHistoryComesBackAndIsStored) {
    KVHistoryCenter::shared().addFile(url("made.mp4"), KVMediaFileType::video);
    const auto items = KVHistoryCenter::shared().historyItems();
    window().toggleHistory();
    const auto *history = window().findChild<KVHistoryView *>();
    QTest::mouseClick(history->findChild<QPushButton *>(), Qt::LeftButton);
    EXPECT_TRUE(KVHistoryCenter::shared().historyItems().isEmpty());
    EXPECT_EQ(bar().message(), "History cleared");
    window().undo();
    EXPECT_EQ(KVHistoryCenter::shared().historyItems(), items);
    EXPECT_EQ(history->findChild<QListView *>()->model()->rowCount(), int(items.size()));
    EXPECT_EQ(KVPreferences::shared().value(KVPreferenceKeys::HistoryCenterItems).toList().size(),
              items.size());
}

TEST_F(KVRowEditsWindowTest, QuittingAsksWhileARowThatWasStartedByItselfRuns) {
    drop({longTone("long.wav")});
    ASSERT_TRUE(runUntil([&] { return rowOf("long.wav").isValid(); }));
    model().tableRow(rowOf("long.wav"))->startConversion();
    ASSERT_TRUE(waitForProgress("long.wav"));
    EXPECT_FALSE(KVConversionQueue::isAnyQueueWorking());
    window().close();
    ASSERT_EQ(questions->alerts.size(), 1U);
    EXPECT_EQ(questions->alerts.front().messageText, "Do you really want to quit Kalvora?");
    EXPECT_EQ(stateOf("long.wav"), KVConversionState::executing);
    // Undoing its stop makes a row that waits.
    questions->alertResponses.push_back({.returnCode = KVAlertResponse::firstButtonReturn + 1});
    model().tableRow(rowOf("long.wav"))->cancelConversion();
    EXPECT_FALSE(rowOf("long.wav").isValid());
    window().undo();
    EXPECT_EQ(stateOf("long.wav"), KVConversionState::waitingToStart);
}

TEST_F(KVRowEditsWindowTest, NoSequenceOfClicksLosesAFile) {
    const QStringList everything = files();
    QSet<QString> done;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        for (int step = 0; step < 80; ++step) {
            const QStringList before = files();
            doSomething(random);
            done += KVUndoStack::shared().title();
            QStringList after = files();
            EXPECT_EQ(after.removeDuplicates(), 0) << seed << ", " << step;
            if (after.size() < before.size()) {
                EXPECT_TRUE(KVUndoStack::shared().title().startsWith("Remove")) << seed << ", " << step;
                EXPECT_TRUE(bar().isVisible());
            }
        }
        while (KVUndoStack::shared().canUndo())
            window().undo();
        ASSERT_EQ(files(), everything) << seed;
        ASSERT_EQ(rows(), all) << seed;
    }
    for (const char *title :
         {"Merge", "Make DVD", "Split", "Remove", "Remove File", "Move", "Change of Preset"})
        EXPECT_TRUE(done.contains(title)) << title;
}
