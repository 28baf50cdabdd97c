#include "core/KVHistoryCenter.h"
#include "main_ui/KVKalvoraApplication.h"
#include "main_ui/main_window/KVFooterView.h"
#include "main_ui/main_window/table_view/KVConversionRowDelegate.h"
#include "main_ui/main_window/table_view/KVQueueTableWidget.h"
#include "platform/KVScriptedQuestions.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"
#include "util/KVPreferenceKeys.h"
#include "video_info/media_file/KVAudioFile.h"
#include "video_info/media_file/KVPictureFile.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QTest>

#include <QDir>

class KVMainWindowTest : public KVTestCase {
  protected:
    void SetUp() override {
        KVPreferences::shared().setBoolean(true, KVPreferences::Key{"KVDidSeeReleaseNotes1202"});
        application = KVKalvoraApplication::create();
        KVUserQuestion::setResponder(questions);
        tester = std::make_unique<QAbstractItemModelTester>(
            &model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        application->launch({});
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&application->window()));
    }

    void TearDown() override {
        KVConversionQueue::cancelAllAndWait(5);
        tester.reset();
        application.reset();
    }

    KVQueueTableModel &model() { return application->window().tableModel(); }
    KVQueueTableWidget &table() { return application->window().tableWidget(); }

    void drop(const QList<QUrl> &urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&application->window(), &enter);
        QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&application->window(), &event);
    }

    QUrl tone(const QString &name, double seconds = 0.3) {
        return QUrl::fromLocalFile(KVTestMedia::tone(path(name), seconds));
    }

    QModelIndex rowOf(const QString &title) {
        for (int row = 0; row < model().rowCount(); ++row)
            if (model().index(row).data().toString() == title) return model().index(row);
        return {};
    }

    QString statusOf(const QString &title) {
        return rowOf(title).data(KVQueueTableModel::statusRole).toString();
    }

    void click(const QRect &rect) {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, rect.center());
    }

    std::shared_ptr<KVScriptedQuestions> questions = std::make_shared<KVScriptedQuestions>();
    std::shared_ptr<KVKalvoraApplication> application;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

TEST_F(KVMainWindowTest, DroppedFilesBecomeRowsInTheirGroupsAndConvert) {
    EXPECT_TRUE(application->window().showsDropZone());
    const QUrl picture = QUrl::fromLocalFile(path("p.png"));
    KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=64x48", "-frames:v", "1", picture.toLocalFile()});
    drop({tone("a.wav"), picture, QUrl("https://example.org/no.wav"), url("missing.wav")});
    ASSERT_TRUE(runUntil([&] { return model().rowCount() == 4; }));
    EXPECT_FALSE(application->window().showsDropZone());
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
    EXPECT_FALSE(application->window().grab().isNull());
}

TEST_F(KVMainWindowTest, ThePresetOfAGroupIsChosenFromItsPopUp) {
    drop({tone("a.wav")});
    ASSERT_TRUE(runUntil([&] { return model().rowCount() == 2; }));
    QPoint asked;
    QObject::connect(&table(), &KVQueueTableWidget::presetMenuRequested, &table(),
                     [&](const QModelIndex &, const QPoint &position) { asked = position; });
    click(KVConversionRowDelegate::presetRect(table().visualRect(model().index(0))));
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
    drop({tone("long.wav", 2000)});
    ASSERT_TRUE(runUntil([&] { return model().rowCount() == 2; }));
    model().presetPopUpButton(KVMediaFileType::audio).choosePreset(KVPreset::presetNamed("Ogg (Audio)"));
    application->start();
    const auto state = [&] { return rowOf("long.wav").data(KVQueueTableModel::stateRole).toInt(); };
    ASSERT_TRUE(runUntil([&] {
        return state() == int(KVConversionState::executing) &&
               rowOf("long.wav").data(KVQueueTableModel::progressRole).toDouble() > 0;
    }));
    const auto stop = [&] {
        return KVConversionRowDelegate::stopRect(table().visualRect(rowOf("long.wav")));
    };
    click(stop());
    EXPECT_EQ(state(), int(KVConversionState::paused));
    EXPECT_EQ(statusOf("long.wav"), "Paused");
    click(stop());
    EXPECT_EQ(state(), int(KVConversionState::executing));

    // With the modifier key the button stops; the first answer goes on, the second ends it.
    model().setIsOptionKeyDown(true);
    questions->alertResponses.push_back({.returnCode = KVAlertResponse::firstButtonReturn});
    questions->alertResponses.push_back({.returnCode = KVAlertResponse::firstButtonReturn + 1});
    click(stop());
    EXPECT_EQ(model().rowCount(), 2);
    click(stop());
    ASSERT_TRUE(runUntil(
        [&] { return application->window().showsDropZone() && !KVConversionQueue::isAnyQueueWorking(); }));
    EXPECT_EQ(QDir(path()).entryList(QDir::Files), QStringList{"long.wav"});
}

TEST_F(KVMainWindowTest, QuittingInTheMiddleAsksAndLeavesNothingBehind) {
    drop({tone("long.wav", 2000)});
    ASSERT_TRUE(runUntil([&] { return model().rowCount() == 2; }));
    application->start();
    ASSERT_TRUE(
        runUntil([&] { return rowOf("long.wav").data(KVQueueTableModel::progressRole).toDouble() > 0; }));

    questions->alertResponses.push_back({.returnCode = KVAlertResponse::firstButtonReturn});
    application->window().close();
    EXPECT_TRUE(application->window().isVisible());
    EXPECT_EQ(questions->alerts.front().messageText, "Do you really want to quit Kalvora?");
    EXPECT_TRUE(KVConversionQueue::isAnyQueueWorking());

    questions->alertResponses.push_back({.returnCode = KVAlertResponse::firstButtonReturn + 1});
    EXPECT_EQ(application->controller().applicationShouldTerminate(),
              KVApplicationController::TerminateReply::now);
    EXPECT_FALSE(KVConversionQueue::isAnyQueueWorking());
    EXPECT_EQ(QDir(path()).entryList(QDir::Files), QStringList{"long.wav"});
}

TEST_F(KVMainWindowTest, FailuresAreShownInTheRowAndTold) {
    drop({tone("a.wav"), tone("b.wav")});
    ASSERT_TRUE(runUntil([&] { return model().rowCount() == 3; }));
    QFile::remove(path("a.wav"));
    application->start();
    ASSERT_TRUE(runUntil([&] { return !questions->alerts.empty(); }));
    EXPECT_EQ(statusOf("a.wav"), "Error converting.");
    EXPECT_TRUE(statusOf("b.wav").startsWith("Done"));
    EXPECT_TRUE(
        questions->alerts.front().messageText.startsWith("The file to be converted cannot be found."));
}

TEST_F(KVMainWindowTest, AFolderShowsItsFirstFilesAtOnceAndTheOthersBehind) {
    QDir(path()).mkdir("in");
    tone("in/00.wav");
    for (int i = 1; i < 10; ++i)
        QFile::copy(path("in/00.wav"), path(QStringLiteral("in/%1.wav").arg(i, 2, 10, QChar('0'))));
    application->addFiles({url("in")});
    EXPECT_EQ(model().rowCount(), 5); // the group and four files, before control comes back
    EXPECT_TRUE(runUntil([&] { return model().rowCount() == 11; }));
}

TEST_F(KVMainWindowTest, TheKeyboardReachesEveryRow) {
    drop({tone("a.wav"), tone("b.wav")});
    ASSERT_TRUE(runUntil([&] { return model().rowCount() == 3; }));
    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_End);
    EXPECT_EQ(table().currentIndex().row(), 2);
    QTest::keyClick(&table(), Qt::Key_Up);
    EXPECT_EQ(table().currentIndex().row(), 1);
    QTest::keyClick(&table(), Qt::Key_Delete);
    EXPECT_TRUE(runUntil([&] { return model().rowCount() == 2; }));
}

TEST_F(KVMainWindowTest, RowPositionsAreConsistentForManyRows) {
    const auto queue = KVConversionQueue::queue(KVMediaFileType::audio);
    const auto pictures = KVConversionQueue::queue(KVMediaFileType::picture);
    for (int i = 0; i < 200; ++i)
        queue->createConversion(std::make_shared<KVAudioFile>(url(QString::number(i))), nullptr, true);
    pictures->createConversion(std::make_shared<KVPictureFile>(url("p.png")), nullptr, true);
    EXPECT_EQ(table().visualRect(model().index(0)).height(), 26);
    for (const int row : {0, 1, 57, 200, 201, 202}) {
        table().scrollTo(model().index(row));
        const QRect rect = table().visualRect(model().index(row));
        EXPECT_EQ(table().indexAt(rect.center()).row(), row);
        EXPECT_TRUE(table().viewport()->rect().contains(rect)) << row;
    }
}
