#include "main_ui/KVWindowTestCase.h"
#include "main_ui/main_window/KVNoticeBar.h"
#include "main_ui/main_window/refusals/KVRefusalsDialog.h"
#include "support/KVTestMedia.h"
#include "util/KVPreferenceKeys.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

/// What the window shows of files that it does not take, and of a damaged store.
class KVRefusalsTest : public KVWindowTestCase {
  protected:
    /// The texts of the visible notices.
    QStringList notices() {
        QStringList texts;
        for (const auto *bar : window().findChildren<KVNoticeBar *>())
            if (bar->isVisible()) texts += bar->notice();
        return texts;
    }
    bool waitForNotice(const QString &text) {
        return runUntil([&] { return notices() == (text.isEmpty() ? QStringList() : QStringList{text}); },
                        10);
    }
    template <class Button>
    static void press(QWidget &parent, const QString &title) {
        for (auto *button : parent.findChildren<Button *>())
            if (button->isVisible() && button->text() == title) return button->click();
        FAIL() << "no button " << title.toStdString();
    }
    KVNoticeBar &notice() {
        for (auto *bar : window().findChildren<KVNoticeBar *>())
            if (bar->isVisible()) return *bar;
        throw std::logic_error("no notice");
    }
    KVRefusalsDialog *openList() {
        press<QPushButton>(notice(), "Show...");
        auto *list = window().findChild<KVRefusalsDialog *>();
        return list && list->isVisible() ? list : nullptr;
    }
    static QStringList rows(const KVRefusalsDialog &list) {
        QStringList rows;
        const auto *tree = list.findChild<QTreeWidget *>();
        for (int row = 0; row < tree->topLevelItemCount(); ++row)
            rows += tree->topLevelItem(row)->text(0) + ": " + tree->topLevelItem(row)->text(2);
        return rows;
    }
};

TEST_F(KVRefusalsTest, CountsWhatIsNotAddedAndListsTheReasons) {
    write("empty.wav", "");
    write("fake.mp3", "this is no sound");
    drop({url("empty.wav"), url("fake.mp3"), url("missing.wav")});
    ASSERT_TRUE(waitForNotice("3 files were not added"));
    EXPECT_TRUE(window().showsDropZone()) << "the count needs no row";
    EXPECT_TRUE(questions->alerts.empty());

    // The next drop adds to the count.
    drop({tone("good.wav")});
    ASSERT_TRUE(waitForRows(2));
    drop({url("good.wav")});
    ASSERT_TRUE(waitForNotice("4 files were not added"));

    KVRefusalsDialog *list = openList();
    ASSERT_TRUE(list);
    EXPECT_EQ(
        rows(*list),
        (QStringList{"empty.wav: The file is empty.", "fake.mp3: Unrecognized file format.",
                     "missing.wav: No such file or folder.", "good.wav: The file is in the queue already."}));
    press<QPushButton>(*list, "Copy");
    EXPECT_TRUE(
        QGuiApplication::clipboard()->text().startsWith("empty.wav\t" + path() + "\tThe file is empty."));

    // The open list follows; closing it ends the count.
    write("notes.txt", "text");
    drop({url("notes.txt")});
    EXPECT_TRUE(runUntil([&] { return rows(*list).size() == 5; }, 10));
    press<QPushButton>(*list, "Close");
    ASSERT_TRUE(waitForNotice(""));
    drop({url("notes.txt")});
    ASSERT_TRUE(waitForNotice("1 file was not added"));
    press<QToolButton>(notice(), QStringLiteral("\u00d7"));
    EXPECT_TRUE(waitForNotice(""));
    drop({url("missing.wav")});
    EXPECT_TRUE(waitForNotice("1 file was not added")) << "a closed count begins anew";
}

TEST_F(KVRefusalsTest, OffersTheDiscOfAFolderAndKeepsExpectedFilesQuiet) {
    write("Film/VIDEO_TS/VIDEO_TS.IFO", "x");
    write("Film/notes.txt", "text");
    write("Film/cover.nfo", "text");
    drop({url("Film")});
    ASSERT_TRUE(waitForNotice("The folder holds a DVD"));
    KVRefusalsDialog *list = openList();
    ASSERT_TRUE(list);
    ASSERT_TRUE(runUntil([&] { return rows(*list).size() == 2 && rows(*list).last().startsWith('2'); }, 10));
    EXPECT_EQ(rows(*list), (QStringList{"VIDEO_TS: This folder is a DVD.",
                                        "2 other files in the folders were skipped: "}));
    list->hide();
    press<QPushButton>(notice(), "Add the Disc");
    ASSERT_TRUE(waitForRows(2));
    EXPECT_EQ(titles(), (QStringList{"DVD", "Film"}));
    EXPECT_TRUE(waitForNotice("2 other files in the folders were skipped"));
}

TEST_F(KVRefusalsTest, ADamagedStoreIsReportedOnce) {
    // The start-up has to be over: it would show the release notes of a first start.
    ASSERT_TRUE(runUntil(
        [] { return KVPreferences::shared().boolean(KVPreferenceKeys::HasGuessedLocation, false); }, 10));
    const QString store = KVPreferences::shared().filePath();
    QFile file(store);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{ this is no store");
    file.close();
    KVPreferences::shared().boolean(KVPreferences::Key{"any"}, false);
    ASSERT_TRUE(runUntil([&] { return !notices().isEmpty(); }, 10));
    EXPECT_TRUE(
        notices().first().startsWith("The preferences in " + store + " were damaged; they are kept as "));
    KVPreferences::shared().boolean(KVPreferences::Key{"any"}, false);
    EXPECT_EQ(notices().size(), 1);
    EXPECT_TRUE(questions->alerts.empty());
    press<QToolButton>(notice(), QStringLiteral("\u00d7"));
    EXPECT_TRUE(waitForNotice(""));
}

/// The store is damaged before the first start.
class KVDamagedStoreTest : public KVTestCase {};

TEST_F(KVDamagedStoreTest, IsReportedAtTheStartWithoutTheNotesOfAFirstStart) {
    const QString store = KVPreferences::shared().filePath();
    QDir().mkpath(QFileInfo(store).path());
    QFile file(store);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{ this is no store");
    file.close();
    bool hasAsked = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (QWidget *modal = QApplication::activeModalWidget()) hasAsked = modal->close();
    });
    timer.start(20);
    const auto application = KVKalvoraApplication::create();
    application->launch({});
    const auto *notice = [&]() -> KVNoticeBar * {
        runUntil([&] { return application->window().findChildren<KVNoticeBar *>().size() == 2; }, 10);
        for (auto *bar : application->window().findChildren<KVNoticeBar *>())
            if (bar->isVisible()) return bar;
        return nullptr;
    }();
    ASSERT_TRUE(notice);
    EXPECT_TRUE(notice->notice().contains("were damaged"));
    EXPECT_TRUE(runUntil(
        [] { return KVPreferences::shared().boolean(KVPreferences::Key{"KVDidSeeReleaseNotes1202"}, false); },
        10));
    EXPECT_FALSE(hasAsked);
}
