#include "core/KVHistoryCenter.h"
#include "main_ui/KVWindowTestCase.h"
#include "main_ui/main_window/history/KVHistoryView.h"

#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

class KVHistoryViewTest : public KVWindowTestCase {
  protected:
    KVHistoryView &history() { return *window().findChild<KVHistoryView *>(); }
    QListView &list() { return *history().findChild<QListView *>(); }

    /// The commands of the menu that the keyboard opens, those that are off in brackets.
    QStringList keyboardMenu() {
        QStringList commands;
        QTimer::singleShot(0, qApp, [&] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu) return;
            for (const QAction *action : menu->actions())
                commands += action->isEnabled() ? action->text() : "(" + action->text() + ")";
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(list().viewport(), &event);
        return commands;
    }
};

TEST_F(KVHistoryViewTest, ListsWhatWasMadeAndOpensShowsAndForgetsIt) {
    drop({tone("a.wav"), tone("b.wav")});
    ASSERT_TRUE(waitForRows(3));
    window().toggleHistory();
    application->start();
    ASSERT_TRUE(runUntil([&] { return list().model()->rowCount() == 2; }) && waitUntilIdle());
    list().setFocus();
    list().setCurrentIndex(list().model()->index(0, 0));
    const QString newest = list().currentIndex().data().toString();
    EXPECT_EQ(keyboardMenu(), (QStringList{"Open", "Show in Finder"}));
    QFile::remove(path(newest));
    EXPECT_EQ(keyboardMenu(), (QStringList{"(Open)", "(Show in Finder)"}));
    QTest::keyClick(&list(), Qt::Key_Return);
    ASSERT_EQ(questions->alerts.size(), 1U);
    EXPECT_EQ(questions->alerts.front().messageText, "'" + newest + "' has been moved or deleted.");

    QObject::disconnect(&history(), &KVHistoryView::openRequested, nullptr,
                        nullptr); // no desktop opens anything here
    QSignalSpy asked(&history(), &KVHistoryView::openRequested);
    QTest::keyClick(&list(), Qt::Key_Return);
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.first().first().toUrl(), url(newest));

    history().findChild<QPushButton *>()->click();
    EXPECT_EQ(list().model()->rowCount(), 0);
    EXPECT_TRUE(KVHistoryCenter::shared().historyItems().isEmpty());
    EXPECT_FALSE(history().findChild<QPushButton *>()->isEnabled());
}
