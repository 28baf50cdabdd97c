#include "main_ui/questions/KVWindowQuestions.h"
#include "support/KVTestCase.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

class KVWindowQuestionsTest : public KVTestCase {
  protected:
    /// Does something with the dialog that the next question opens.
    template <class Dialog>
    void whenAsked(std::function<void(Dialog &)> answer) {
        QTimer::singleShot(0, qApp, [answer] {
            auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            answer(*dialog);
        });
    }

    KVWindowQuestions questions{nullptr};
    const KVAlert alert{.messageText = "Really?",
                        .informativeText = "It <b>matters</b>.",
                        .buttons = {"Continue", "Cancel It"},
                        .suppressionTitle = "Don't ask again",
                        .accessoryItems = {"one", "two"}};
};

TEST_F(KVWindowQuestionsTest, AnAlertAnswersWithItsButtonBoxAndChoice) {
    whenAsked<QMessageBox>([](QMessageBox &box) {
        EXPECT_EQ(box.text(), "Really?");
        EXPECT_EQ(box.defaultButton()->text(), "Continue");
        box.findChild<QComboBox *>()->setCurrentIndex(1);
        box.checkBox()->setChecked(true);
        box.buttons().last()->click();
    });
    const KVAlertResponse response = questions.runAlert(alert);
    EXPECT_EQ(response.returnCode, KVAlertResponse::firstButtonReturn + 1);
    EXPECT_TRUE(response.isSuppressed);
    EXPECT_EQ(response.accessoryIndex, 1);
}

TEST_F(KVWindowQuestionsTest, EscapeTakesTheAnswerThatChangesNothing) {
    whenAsked<QMessageBox>([](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_TRUE(questions.runAlert(alert).isFirstButton());
    KVAlert other = alert;
    other.buttonThatChangesNothing = 1;
    whenAsked<QMessageBox>([](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_FALSE(questions.runAlert(other).isFirstButton());
}

TEST_F(KVWindowQuestionsTest, AChoiceHasARowOfItsOwnAndEscapeItsOwnButton) {
    KVAlert tracks = alert;
    tracks.messageText = "File 'a rather long name of a film.mkv' has more than one audio track.";
    tracks.informativeText.clear();
    tracks.accessoryItems = {"1: eng (6) (ac3) - 0 kbit/s, 6 channels",
                             "2: deu (2) (aac) - 0 kbit/s, 2 channels"};
    tracks.escapeButton = 1;
    for (const bool hasBox : {true, false}) {
        if (!hasBox) tracks.suppressionTitle.reset();
        whenAsked<QMessageBox>([hasBox](QMessageBox &box) {
            const auto place = [&](const QWidget *widget) {
                return QRect(widget->mapTo(&box, QPoint()), widget->size());
            };
            const QRect choice = place(box.findChild<QComboBox *>());
            const QRect buttons = place(box.buttons().first());
            const QRect text = place(box.findChild<QLabel *>("qt_msgbox_label"));
            EXPECT_GT(choice.top(), text.bottom());
            EXPECT_LT(choice.bottom(), buttons.top());
            EXPECT_TRUE(box.rect().contains(choice));
            if (hasBox) {
                EXPECT_GT(place(box.checkBox()).top(), choice.bottom());
                EXPECT_LT(place(box.checkBox()).bottom(), buttons.top());
            }
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        EXPECT_EQ(questions.runAlert(tracks).returnCode, KVAlertResponse::firstButtonReturn + 1);
    }
}

TEST_F(KVWindowQuestionsTest, APanelTakesFilesAndFoldersTogether) {
    write("in/folder/inside.mov", "x");
    write("in/a.mov", "x");
    const KVOpenPanel panel{.canChooseFiles = true,
                            .canChooseFolders = true,
                            .allowsMultipleSelection = true,
                            .directory = url("in")};
    const auto choose = [&](const QStringList &names) {
        whenAsked<QFileDialog>([names](QFileDialog &dialog) {
            auto *view = dialog.findChild<QListView *>("listView");
            const auto indexOf = [&](const QString &name) {
                const auto found = view->model()->match(view->model()->index(0, 0, view->rootIndex()),
                                                        Qt::DisplayRole, name, 1, Qt::MatchExactly);
                return found.isEmpty() ? QModelIndex() : found.first();
            };
            ASSERT_TRUE(runUntil([&] { return indexOf("folder").isValid() && indexOf("a.mov").isValid(); }));
            for (const QString &name : names)
                view->selectionModel()->select(indexOf(name),
                                               QItemSelectionModel::Select | QItemSelectionModel::Rows);
            auto *open = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open);
            view->setFocus();
            EXPECT_TRUE(open->isEnabled());
            open->click();
            if (dialog.isVisible()) {
                ADD_FAILURE() << "the dialog is still open";
                dialog.reject();
            }
        });
        QStringList chosen;
        for (const QUrl &chosenURL : questions.runOpenPanel(panel))
            chosen += chosenURL.fileName();
        chosen.sort();
        return chosen;
    };
    EXPECT_EQ(choose({"folder", "a.mov"}), (QStringList{"a.mov", "folder"}));
    EXPECT_EQ(choose({"folder"}), QStringList{"folder"});
    EXPECT_EQ(choose({"a.mov"}), QStringList{"a.mov"});
}

TEST_F(KVWindowQuestionsTest, APanelBeginsAtHomeAndThenWhereTheLastOneEnded) {
    QDir(path()).mkdir("films");
    const auto panel = [this](const QString &begin, const QString &chosen) {
        whenAsked<QFileDialog>([=](QFileDialog &dialog) {
            EXPECT_EQ(dialog.directory().path(), begin);
            dialog.selectFile(chosen);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        return questions.runOpenPanel({.canChooseFiles = true});
    };
    write("films/a.mov", "x");
    EXPECT_EQ(panel(QDir::homePath(), path("films/a.mov")), QList<QUrl>{url("films/a.mov")});
    EXPECT_EQ(panel(path("films"), path("films/a.mov")), QList<QUrl>{url("films/a.mov")});
}

TEST_F(KVWindowQuestionsTest, ATextPromptAnswersWithTheTextOrNothing) {
    const KVTextPrompt prompt{
        .messageText = "Enter new name:", .defaultValue = "old", .buttons = {"OK", "Cancel"}};
    whenAsked<QInputDialog>([](QInputDialog &dialog) {
        EXPECT_EQ(dialog.textValue(), "old");
        dialog.findChild<QLineEdit *>()->setText("new");
        dialog.accept();
    });
    EXPECT_EQ(questions.runTextPrompt(prompt), "new");
    whenAsked<QInputDialog>([](QInputDialog &dialog) { dialog.reject(); });
    EXPECT_EQ(questions.runTextPrompt(prompt), std::nullopt);
}
