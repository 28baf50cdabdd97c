#include "main_ui/KVWindowTestCase.h"
#include "main_ui/main_window/KVLook.h"
#include "main_ui/main_window/details/KVFailureDetailsPanel.h"
#include "main_ui/main_window/table_view/KVConversionRowDelegate.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

/// What the window shows of conversions that failed or that lack something, with the real tool.
class KVFailedRowTest : public KVWindowTestCase {
  protected:
    /// Rows of sounds that fail, since the sources are gone when their turn comes. Each is kept beside.
    void makeFailedRows(const QStringList &names) {
        QList<QUrl> urls;
        for (const QString &name : names)
            urls += tone(name);
        drop(urls);
        ASSERT_TRUE(waitForRows(int(names.size()) + 1));
        for (const QString &name : names)
            QFile::rename(path(name), path(name + ".kept"));
        application->start();
        for (const QString &name : names)
            ASSERT_TRUE(runUntil([&] { return stateOf(name) == KVConversionState::finished; }));
        ASSERT_TRUE(waitUntilIdle());
    }

    bool waitUntilDone(const QString &title) {
        return runUntil([&] {
            return stateOf(title) == KVConversionState::finished && statusOf(title).startsWith("Done");
        });
    }

    void mend(const QString &name) { ASSERT_TRUE(QFile::rename(path(name + ".kept"), path(name))); }

    QPoint signOf(const QString &title) {
        return KVConversionRowDelegate::signRect(table().visualRect(rowOf(title))).center();
    }

    bool signShows(const QString &title, const QColor &color) {
        const QRect sign = KVConversionRowDelegate::signRect(table().visualRect(rowOf(title)));
        const QImage image = table().viewport()->grab(sign).toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).rgb() == color.rgb()) return true;
        return false;
    }

    QList<KVFailureDetailsPanel *> panels() {
        QList<KVFailureDetailsPanel *> open;
        for (auto *panel : window().findChildren<KVFailureDetailsPanel *>())
            if (panel->isVisible()) open += panel;
        return open;
    }

    /// Opens the details with a click on the sign.
    KVFailureDetailsPanel *openPanel(const QString &title) {
        click(signOf(title));
        EXPECT_EQ(panels().size(), 1);
        return panels().value(0);
    }

    static QPushButton *button(const QWidget *panel, const QString &title) {
        for (QPushButton *button : panel->findChildren<QPushButton *>())
            if (button->text() == title) return button;
        return nullptr;
    }

    /// All that the panel shows as text.
    static QString textOf(const QWidget *panel) {
        QStringList texts;
        for (const auto *label : panel->findChildren<QLabel *>())
            texts += label->text();
        for (const auto *box : panel->findChildren<QPlainTextEdit *>())
            texts += box->toPlainText();
        return texts.join('\n');
    }

    QStringList menuOf(const QString &title) {
        QStringList titles;
        for (const KVMenuItem &item : model().tableRow(rowOf(title))->menu())
            titles += item.title;
        return titles;
    }
};

TEST_F(KVFailedRowTest, TheSignOpensWhatIsKnownAndTryAgainWorksOnceTheCauseIsMended) {
    makeFailedRows({"a.wav", "b.wav"});
    const QString cause = statusOf("a.wav");
    EXPECT_FALSE(cause.isEmpty() || cause.contains("Done"));
    EXPECT_TRUE(rowOf("a.wav").data(Qt::ToolTipRole).toString().contains(cause));
    EXPECT_TRUE(signShows("a.wav", KVLook::failure(table().palette())));
    EXPECT_FALSE(signShows("a.wav", KVLook::success(table().palette())));

    QWidget *panel = openPanel("a.wav");
    ASSERT_TRUE(panel);
    EXPECT_FALSE(panel->isModal());
    EXPECT_TRUE(panel->windowTitle().contains("a.wav"));
    const QString text = textOf(panel);
    for (const QString &part : {QStringLiteral("a.wav"), cause, QStringLiteral("\nffmpeg "), path("a.wav"),
                                QStringLiteral("No such file or directory")})
        EXPECT_TRUE(text.contains(part)) << part.toStdString();
    click(signOf("a.wav"));
    EXPECT_EQ(panels().size(), 1) << "a second click raises the same panel";

    QTest::mouseClick(button(panel, "Copy"), Qt::LeftButton);
    const QString copied = QApplication::clipboard()->text();
    EXPECT_TRUE(copied.contains(cause) && copied.contains("No such file or directory"));
    questions->savePanelResponses.push_back(url("details.txt"));
    QTest::mouseClick(button(panel, "Save..."), Qt::LeftButton);
    EXPECT_EQ(read(path("details.txt")), copied.toUtf8());
    questions->savePanelResponses.push_back(url("missing/details.txt"));
    QTest::mouseClick(button(panel, "Save..."), Qt::LeftButton);
    EXPECT_EQ(questions->alerts.back().messageText, "The details could not be saved.");

    mend("a.wav");
    QTest::mouseClick(button(panel, "Try Again"), Qt::LeftButton);
    ASSERT_TRUE(waitUntilDone("a.wav"));
    EXPECT_TRUE(QFile::exists(path("a.mp3")));
    EXPECT_EQ(titles(), (QStringList{"Audio", "a.wav", "b.wav"})) << "in the place of the failed row";
    EXPECT_TRUE(panels().isEmpty()) << "the panel goes with its row";
    EXPECT_TRUE(signShows("a.wav", KVLook::success(table().palette())));
    EXPECT_FALSE(menuOf("a.wav").contains("Details..."));
}

TEST_F(KVFailedRowTest, TheKeyboardReachesEverything) {
    makeFailedRows({"a.wav"});
    table().setFocus();
    table().setCurrentIndex(rowOf("a.wav"));
    QTest::keyClick(&table(), Qt::Key_Return);
    ASSERT_EQ(panels().size(), 1);
    QWidget *panel = panels().first();
    QSet<QString> reached;
    for (int i = 0; i < 12; ++i) {
        if (QWidget *focus = panel->focusWidget())
            reached += focus->accessibleName().isEmpty() ? focus->property("text").toString()
                                                         : focus->accessibleName();
        QTest::keyClick(panel->focusWidget() ? panel->focusWidget() : panel, Qt::Key_Tab);
    }
    for (const char *title : {"Try Again", "Copy", "Save...", "Close", "Command:", "Last lines of the log:"})
        EXPECT_TRUE(reached.contains(title)) << title;
    QTest::keyClick(panel, Qt::Key_Escape);
    EXPECT_TRUE(panels().isEmpty());
    QTest::keyClick(&table(), Qt::Key_Space);
    EXPECT_EQ(panels().size(), 1) << "closed panels open again";
    EXPECT_TRUE(menuOf("a.wav").contains("Details..."));
}

TEST_F(KVFailedRowTest, ASuccessWithWarningsIsAmberAndHasNothingToTryAgain) {
    drop({tone("a.wav"), tone("b.wav")});
    ASSERT_TRUE(waitForRows(3));
    const auto conversions = KVConversionQueue::queue(KVMediaFileType::audio)->conversions();
    conversions.at(0)->mediaFiles().first()->warnings = {"Only 0:17 of 4:00: the source is incomplete"};
    conversions.at(1)->mediaFiles().first()->warnings = {"A page is lost.", "A track is lost."};
    application->start();
    ASSERT_TRUE(runUntil([&] { return statusOf("b.wav") == "Done, with 2 warnings"; }));
    ASSERT_TRUE(runUntil(
        [&] { return statusOf("a.wav") == "Done, but only 0:17 of 4:00: the source is incomplete"; }));
    EXPECT_TRUE(signShows("a.wav", KVLook::warning(table().palette())));
    EXPECT_TRUE(rowOf("a.wav").data(KVQueueTableModel::isSuccessfulRole).toBool());
    QWidget *panel = openPanel("b.wav");
    ASSERT_TRUE(panel);
    EXPECT_TRUE(textOf(panel).contains("A track is lost."));
    EXPECT_FALSE(button(panel, "Try Again"));
    EXPECT_FALSE(menuOf("b.wav").contains("Try Again"));
}

TEST_F(KVFailedRowTest, TheResultOfAFurtherTryGoesIntoTheChosenFolder) {
    makeFailedRows({"a.wav"});
    mend("a.wav");
    QDir(path()).mkdir("elsewhere");
    questions->openPanelResponses.push_back({url("elsewhere")});
    model().tableRow(rowOf("a.wav"))->tryAgainInAnotherFolder();
    ASSERT_TRUE(waitUntilDone("a.wav"));
    EXPECT_TRUE(QFile::exists(path("elsewhere/a.mp3")));
    EXPECT_FALSE(QFile::exists(path("a.mp3")));
}

TEST_F(KVFailedRowTest, TheRetryThatHelpsIsTheDefaultButton) {
    struct Case {
        KVFailureRetry retry;
        const char *title;
    };
    for (const Case &expected : {Case{KVFailureRetry::again, "Try Again"},
                                 Case{KVFailureRetry::withoutSubtitles, "Try Again Without Subtitles"},
                                 Case{KVFailureRetry::inAnotherFolder, "Try Again in Another Folder..."}}) {
        auto *panel = new KVFailureDetailsPanel(
            {.name = "a.wav", .hasFailed = true, .cause = "It failed.", .retry = expected.retry}, &window());
        KVFailureRetry requested = KVFailureRetry::none;
        QObject::connect(panel, &KVFailureDetailsPanel::retryRequested, panel,
                         [&](KVFailureRetry retry) { requested = retry; });
        panel->show();
        QPushButton *help = button(panel, expected.title);
        ASSERT_TRUE(help);
        EXPECT_TRUE(help->isDefault());
        EXPECT_TRUE(button(panel, "Try Again"));
        QTest::mouseClick(help, Qt::LeftButton);
        EXPECT_EQ(requested, expected.retry);
        panel->close();
    }
}
