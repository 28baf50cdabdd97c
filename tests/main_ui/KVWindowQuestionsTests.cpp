#include "main_ui/questions/KVWindowQuestions.h"
#include "support/KVTestCase.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
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
