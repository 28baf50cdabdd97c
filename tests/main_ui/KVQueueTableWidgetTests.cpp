#include "conversion/conversions/KVConversion.h"
#include "main_ui/KVWindowTestCase.h"
#include "video_info/media_file/KVPictureFile.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QApplication>
#include <QDrag>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QTest>

class KVQueueTableWidgetTest : public KVWindowTestCase {
  protected:
    void add(KVMediaFileType type, const QStringList &names) {
        for (const QString &name : names) {
            std::shared_ptr<KVMediaFile> file;
            if (type == KVMediaFileType::picture)
                file = std::make_shared<KVPictureFile>(url(name));
            else if (type == KVMediaFileType::video)
                file = std::make_shared<KVVideoFile>(url(name));
            else
                file = std::make_shared<KVAudioFile>(url(name));
            KVConversionQueue::queue(type)->createConversion(file, nullptr, true);
        }
    }

    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&table(), Qt::Key(key), modifiers);
    }

    QString titleOfOpenMenu() {
        const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        return menu && !menu->actions().isEmpty() ? menu->actions().first()->text() : QString();
    }
};

TEST_F(KVQueueTableWidgetTest, ARowDroppedOnAnotherMergesAndBetweenOthersMoves) {
    add(KVMediaFileType::audio, {"a.wav", "b.wav", "c.wav"});
    add(KVMediaFileType::picture, {"p.png", "q.png"});
    EXPECT_TRUE(dragRow(rowOf("c.wav"), rowOf("a.wav"), 0.1));
    EXPECT_EQ(titles(), (QStringList{"Audio", "c.wav", "a.wav", "b.wav", "Picture", "p.png", "q.png"}));
    EXPECT_TRUE(dragRow(rowOf("c.wav"), rowOf("a.wav"), 0.9)); // below a is above b
    EXPECT_EQ(titles().mid(1, 3), (QStringList{"a.wav", "c.wav", "b.wav"}));

    EXPECT_FALSE(dragRow(rowOf("a.wav"), rowOf("p.png"), 0.5)) << "to another type";
    EXPECT_FALSE(dragRow(rowOf("p.png"), rowOf("q.png"), 0.5)) << "pictures do not merge";
    EXPECT_TRUE(dragRow(rowOf("b.wav"), rowOf("a.wav"), 0.5));
    EXPECT_EQ(titles().mid(1, 2), (QStringList{"a.wav & b.wav", "c.wav"}));
    EXPECT_EQ(rowOf("a.wav & b.wav").data(KVQueueTableModel::thumbnailsRole).toList().size(), 2);
}

TEST_F(KVQueueTableWidgetTest, TheMouseTakesARowAlongOnceItHasMovedFarEnough) {
    add(KVMediaFileType::audio, {"a.wav", "b.wav"});
    QWidget *viewport = table().viewport();
    // What is dragged after the mouse has gone so far with its button down; the drag itself ends at once
    // here.
    const auto dragged = [&](const QModelIndex &row, int distance) -> QByteArray {
        const QPoint start = table().visualRect(row).center();
        QTest::mousePress(viewport, Qt::LeftButton, {}, start);
        QMouseEvent move(QEvent::MouseMove, start - QPoint(0, distance), QCursor::pos(), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &move);
        const std::unique_ptr<QDrag> drag(table().findChild<QDrag *>());
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, start);
        return drag ? drag->mimeData()->data("kZRQueueTableViewDragType") : QByteArray();
    };
    const int farEnough = QApplication::startDragDistance();
    EXPECT_EQ(dragged(rowOf("b.wav"), farEnough - 1), QByteArray());
    EXPECT_EQ(dragged(rowOf("b.wav"), farEnough), "2");
    EXPECT_EQ(dragged(rowOf("Audio"), farEnough), QByteArray()); // moves the window
    EXPECT_EQ(model().draggedRow, -1);
}

TEST_F(KVQueueTableWidgetTest, EveryActionIsReachedWithTheKeyboard) {
    add(KVMediaFileType::audio, {"a.wav", "b.wav", "c.wav"});
    table().setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(table().currentIndex(), rowOf("c.wav"));
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(titles(), (QStringList{"Audio", "a.wav", "c.wav", "b.wav"}));
    EXPECT_EQ(table().currentIndex(), rowOf("c.wav")) << "the current row goes along";
    press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(titles(), (QStringList{"Audio", "a.wav", "b.wav", "c.wav"}));
    press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(titles().last(), "c.wav") << "there is nothing below";

    questions->textPromptResponses.push_back("New name");
    press(Qt::Key_F2);
    EXPECT_EQ(titles().last(), "New name");
    EXPECT_EQ(questions->textPrompts.back().defaultValue, "c");

    press(Qt::Key_Return);
    EXPECT_EQ(titleOfOpenMenu(), "Start");
    QApplication::activePopupWidget()->close();
    press(Qt::Key_Home);
    press(Qt::Key_Space);
    EXPECT_FALSE(titleOfOpenMenu().isEmpty()) << "a group row opens its presets";
    QApplication::activePopupWidget()->close();

    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    EXPECT_EQ(titles(), (QStringList{"Audio", "b.wav", "New name"}));
    EXPECT_EQ(table().currentIndex(), rowOf("b.wav"));
    press(Qt::Key_Space); // the button of a waiting row removes it
    EXPECT_EQ(titles(), (QStringList{"Audio", "New name"}));
}

TEST_F(KVQueueTableWidgetTest, RowPositionsAreConsistentForManyRows) {
    QStringList names;
    for (int i = 0; i < 200; ++i)
        names += QString::number(i);
    add(KVMediaFileType::audio, names);
    add(KVMediaFileType::picture, {"p.png"});
    EXPECT_EQ(table().visualRect(model().index(0)).height(), 26);
    for (const int row : {0, 1, 57, 200, 201, 202}) {
        table().scrollTo(model().index(row));
        const QRect rect = table().visualRect(model().index(row));
        EXPECT_EQ(table().indexAt(rect.center()).row(), row);
        EXPECT_TRUE(table().viewport()->rect().contains(rect)) << row;
    }
    EXPECT_FALSE(window().grab().isNull());
}
