#include "core/KVHistoryCenter.h"
#include "main_ui/KVWindowTestCase.h"
#include "main_ui/main_window/KVFooterView.h"
#include "main_ui/main_window/table_view/KVConversionRowDelegate.h"
#include "support/KVTestMedia.h"
#include "util/KVThreadCount.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include <algorithm>

class KVMainWindowTest : public KVWindowTestCase {
  protected:
    QPoint stopButton(const QString &title) {
        return KVConversionRowDelegate::stopRect(table().visualRect(rowOf(title))).center();
    }

    QUrl folderOfTones(int count) {
        QDir(path()).mkdir("in");
        tone("in/00.wav");
        for (int i = 1; i < count; ++i)
            QFile::copy(path("in/00.wav"), path(QStringLiteral("in/%1.wav").arg(i, 2, 10, QChar('0'))));
        return url("in");
    }

    /// Opens a menu of the menu bar and answers what it offers, disabled commands in brackets.
    QStringList menu(const QString &title) {
        QStringList commands;
        for (const QAction *top : window().menuBar()->actions()) {
            if (top->text().remove('&') != title) continue;
            QMenu *opened = top->menu();
            Q_EMIT opened->aboutToShow();
            for (const QAction *action : opened->actions()) {
                const QString text = action->text().remove('&');
                if (!action->isSeparator()) commands += action->isEnabled() ? text : "(" + text + ")";
            }
        }
        return commands;
    }
};

TEST_F(KVMainWindowTest, DroppedFilesBecomeRowsInTheirGroupsAndConvert) {
    EXPECT_TRUE(window().showsDropZone());
    const QUrl picture = QUrl::fromLocalFile(path("p.png"));
    KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=64x48", "-frames:v", "1", picture.toLocalFile()});
    drop({tone("a.wav"), picture, QUrl("https://example.org/no.wav"), url("missing.wav")});
    ASSERT_TRUE(waitForRows(4));
    EXPECT_FALSE(window().showsDropZone());
    EXPECT_EQ(model().index(0).data().toString(), "Audio");
    EXPECT_EQ(model().index(0).data(KVQueueTableModel::presetNameRole).toString(), "MP3");
    EXPECT_EQ(statusOf("a.wav"), "Waiting to start...");

    // The same file a second time says nothing.
    drop({url("a.wav")});
    application->start();
    ASSERT_TRUE(runUntil([&] {
        return statusOf("a.wav").startsWith("Done") &&
               rowOf("p.png").data(KVQueueTableModel::stateRole).toInt() == int(KVConversionState::finished);
    }));
    EXPECT_EQ(model().rowCount(), 4);
    EXPECT_TRUE(QFile::exists(path("a.mp3")));
    EXPECT_TRUE(QFile::exists(path("p.jpg")));
    EXPECT_EQ(KVHistoryCenter::shared().historyItems().size(), 2);
    EXPECT_FALSE(window().grab().isNull());
}

TEST_F(KVMainWindowTest, ThePresetOfAGroupIsChosenFromItsPopUp) {
    drop({tone("a.wav")});
    ASSERT_TRUE(waitForRows(2));
    QPoint asked;
    QObject::connect(&table(), &KVQueueTableWidget::presetMenuRequested, &table(),
                     [&](const QModelIndex &, const QPoint &position) { asked = position; });
    click(KVConversionRowDelegate::presetRect(table().visualRect(model().index(0))).center());
    EXPECT_FALSE(asked.isNull());
    ASSERT_TRUE(QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
    EXPECT_TRUE(
        model().presetPopUpButton(KVMediaFileType::audio).choosePreset(KVPreset::presetNamed("FLAC")));
    EXPECT_EQ(model().index(0).data(KVQueueTableModel::presetNameRole).toString(), "FLAC");
    application->start();
    ASSERT_TRUE(
        runUntil([&] { return QFile::exists(path("a.flac")) && statusOf("a.wav").startsWith("Done"); }));
}

TEST_F(KVMainWindowTest, ARunningRowIsPausedResumedAndCancelledByItsButton) {
    drop({longTone("long.wav")});
    ASSERT_TRUE(waitForRows(2));
    model().presetPopUpButton(KVMediaFileType::audio).choosePreset(KVPreset::presetNamed("Ogg (Audio)"));
    application->start();
    ASSERT_TRUE(waitForProgress("long.wav"));
    click(stopButton("long.wav"));
    EXPECT_EQ(stateOf("long.wav"), KVConversionState::paused);
    EXPECT_EQ(statusOf("long.wav"), "Paused");
    click(stopButton("long.wav"));
    EXPECT_EQ(stateOf("long.wav"), KVConversionState::executing);

    // With the modifier key the button stops; the first answer goes on, the second ends it.
    QTest::keyPress(&window(), Qt::Key_Alt);
    EXPECT_EQ(rowOf("long.wav").data(KVQueueTableModel::stopTitleRole).toString(), "Stop");
    questions->alertResponses.push_back({.returnCode = KVAlertResponse::firstButtonReturn});
    questions->alertResponses.push_back({.returnCode = KVAlertResponse::firstButtonReturn + 1});
    click(stopButton("long.wav"));
    EXPECT_EQ(model().rowCount(), 2);
    click(stopButton("long.wav"));
    ASSERT_TRUE(runUntil([&] { return window().showsDropZone(); }) && waitUntilIdle());
    EXPECT_EQ(QDir(path()).entryList(QDir::Files), QStringList{"long.wav"});
}

TEST_F(KVMainWindowTest, ARowThatIsStartedByItselfFollowsTheFooterToo) {
    KVFooterView &footer = window().footerView();
    drop({longTone("long.wav")});
    ASSERT_TRUE(waitForRows(2));
    model().tableRow(rowOf("long.wav"))->startConversion();
    ASSERT_TRUE(waitForProgress("long.wav"));
    EXPECT_TRUE(footer.showsProgress());
    application->pause();
    EXPECT_EQ(stateOf("long.wav"), KVConversionState::paused);
    application->start();
    EXPECT_EQ(stateOf("long.wav"), KVConversionState::executing);

    // The progress goes with the last row and comes again with the next work.
    model().tableRow(rowOf("long.wav"))->removeConversion();
    ASSERT_TRUE(runUntil([&] { return window().showsDropZone(); }));
    EXPECT_FALSE(footer.showsProgress());
    drop({longTone("next.wav")});
    ASSERT_TRUE(waitForRows(2));
    application->start();
    ASSERT_TRUE(waitForProgress("next.wav"));
    EXPECT_TRUE(footer.showsProgress());
}

TEST_F(KVMainWindowTest, StartStaysInSightWhileARowWaitsBesideOneThatRuns) {
    drop({longTone("long.wav"), longTone("other.wav")});
    ASSERT_TRUE(waitForRows(3));
    const auto buttons = [&] {
        QStringList titles;
        for (const auto *button : window().footerView().findChildren<QPushButton *>())
            if (button->isVisible())
                titles += button->isEnabled() ? button->text() : "(" + button->text() + ")";
        titles.sort();
        return titles;
    };
    ASSERT_TRUE(runUntil([&] { return buttons() == QStringList{"Add Files...", "Start"}; }, 5));
    model().tableRow(rowOf("long.wav"))->startConversion();
    ASSERT_TRUE(waitForProgress("long.wav"));
    EXPECT_TRUE(runUntil([&] { return buttons() == QStringList{"Add Files...", "Pause All", "Start"}; }, 5));
    const auto status = [&] {
        for (const QLabel *label : window().footerView().findChildren<QLabel *>())
            if (label->isVisible() && label->text().endsWith("1 more waiting")) return label->text();
        return QString();
    };
    EXPECT_TRUE(runUntil([&] { return !status().isEmpty(); }, 5));
    for (auto *button : window().footerView().findChildren<QPushButton *>())
        if (button->text() == "Start") button->click();
    ASSERT_TRUE(waitForProgress("other.wav"));
    EXPECT_TRUE(runUntil([&] { return buttons() == QStringList{"Add Files...", "Pause All"}; }, 5));
}

TEST_F(KVMainWindowTest, ManySelectedRowsDoNotAllRunAtOnce) {
    const int processors = KVProcessInfo::processorCount();
    QList<QUrl> urls{longTone("0.wav")};
    for (int number = 1; number < processors + 3; ++number) {
        const QString name = QString::number(number) + ".wav";
        QFile::link(path("0.wav"), path(name));
        urls += url(name);
    }
    drop(urls);
    ASSERT_TRUE(waitForRows(int(urls.size()) + 1));
    table().selectAll();
    table().rowsForCommand().start();
    ASSERT_TRUE(waitForProgress("0.wav"));
    const auto inState = [&](KVConversionState state) {
        return std::ranges::count_if(KVConversionQueue::queue(KVMediaFileType::audio)->conversions(),
                                     [&](const auto &row) { return row->state == state; });
    };
    EXPECT_LE(inState(KVConversionState::executing), processors);
    EXPECT_GE(inState(KVConversionState::waitingToStart), 3);
    // The others follow the first one that ends.
    model().tableRow(rowOf("0.wav"))->removeConversion();
    ASSERT_TRUE(runUntil([&] { return KVConversionQueue::queue(KVMediaFileType::audio)->isWorking(); }));
}

TEST_F(KVMainWindowTest, QuittingInTheMiddleAsksAndLeavesNothingBehind) {
    drop({longTone("long.wav")});
    ASSERT_TRUE(waitForRows(2));
    application->start();
    ASSERT_TRUE(waitForProgress("long.wav"));

    questions->alertResponses.push_back({.returnCode = KVAlertResponse::firstButtonReturn});
    window().close();
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(questions->alerts.front().messageText, "Do you really want to quit Kalvora?");
    EXPECT_TRUE(KVConversionQueue::isAnyQueueWorking());

    questions->alertResponses.push_back({.returnCode = KVAlertResponse::firstButtonReturn + 1});
    EXPECT_EQ(application->controller().applicationShouldTerminate(),
              KVApplicationController::TerminateReply::now);
    EXPECT_FALSE(KVConversionQueue::isAnyQueueWorking());
    EXPECT_EQ(QDir(path()).entryList(QDir::Files), QStringList{"long.wav"});
}

TEST_F(KVMainWindowTest, AFolderShowsItsFirstFilesAtOnceAndTheOthersBehind) {
    application->addFiles({folderOfTones(10)});
    EXPECT_EQ(model().rowCount(), 5); // the group and four files, before control comes back
    EXPECT_TRUE(waitForRows(11));
}

TEST_F(KVMainWindowTest, CommandsAreEnabledWhereThereIsSomethingToDo) {
    EXPECT_EQ(menu("Queue"), (QStringList{"(Start)", "(Pause)", "(Merge All)", "(Make DVD)",
                                          "Preset Settings", "(Clear Finished)", "(Clear Inactive)"}));
    EXPECT_EQ(menu("Conversion"), QStringList{"(No Action)"});
    drop({tone("a.wav"), tone("b.wav")});
    ASSERT_TRUE(waitForRows(3));
    const QStringList expected{"Start",           "(Pause)",          "Merge All",     "(Make DVD)",
                               "Preset Settings", "(Clear Finished)", "Clear Inactive"};
    runUntil([&] { return menu("Queue") == expected; }, 5);
    EXPECT_EQ(menu("Queue"), expected);
    table().setCurrentIndex(rowOf("a.wav"));
    EXPECT_EQ(menu("Conversion"), (QStringList{"Start", "Rename...", "Remove", "Preset", "Merge With"}));
}

TEST_F(KVMainWindowTest, VideosBecomeADisc) {
    const QStringList disc{"-c:v", "mpeg1video", "-c:a", "mp2"};
    drop({QUrl::fromLocalFile(KVTestMedia::clip(path("a.mpg"), 0.4, "160x120", disc)),
          QUrl::fromLocalFile(KVTestMedia::clip(path("b.mpg"), 0.4, "160x120", disc))});
    ASSERT_TRUE(waitForRows(3));
    application->makeDVD();
    ASSERT_EQ(titles(), (QStringList{"Video", "a.mpg & b.mpg [DVD] "}));
    application->start();
    ASSERT_TRUE(runUntil([&] { return stateOf(titles().last()) == KVConversionState::finished; }, 120));
    EXPECT_TRUE(rowOf(titles().last()).data(KVQueueTableModel::isSuccessfulRole).toBool());
    EXPECT_FALSE(QDir(path()).entryList({"*.iso"}).isEmpty());
}

TEST_F(KVMainWindowTest, TheFooterSaysWhatIsStillLoading) {
    application->addFiles({folderOfTones(12)});
    const auto text = [&] {
        for (const QLabel *label : window().footerView().findChildren<QLabel *>())
            if (label->isVisible() && label->text().startsWith("Loading")) return label->text();
        return QString();
    };
    ASSERT_TRUE(runUntil([&] { return !text().isEmpty(); }));
    EXPECT_TRUE(runUntil([&] { return text().isEmpty() && model().rowCount() == 13; }));
}
