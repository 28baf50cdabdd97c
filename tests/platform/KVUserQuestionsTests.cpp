#include "kvcore/KVMainThread.h"
#include "platform/KVScriptedQuestions.h"
#include "platform/KVSilentQuestions.h"
#include "platform/KVTerminalQuestions.h"
#include "support/KVTestCase.h"

#include <cstdlib>
#include <thread>

class KVUserQuestionsTest : public KVTestCase {
  protected:
    /// Puts a question to a terminal on which `typed` is typed, and keeps what it prints.
    template <class Ask>
    auto asking(const QByteArray &typed, Ask ask) {
        const std::unique_ptr<FILE, int (*)(FILE *)> input(
            std::fopen(write("typed", typed).toUtf8().constData(), "r"), std::fclose);
        const std::unique_ptr<FILE, int (*)(FILE *)> output(
            std::fopen(path("printed").toUtf8().constData(), "w"), std::fclose);
        KVTerminalQuestions terminal(input.get(), output.get());
        const auto answer = ask(terminal);
        std::fflush(output.get());
        _printed = QString::fromUtf8(read(path("printed")));
        return answer;
    }

    KVAlertResponse answer(const QByteArray &typed) {
        return asking(typed, [&](KVUserQuestions &terminal) { return terminal.runAlert(_alert); });
    }

    KVAlert _alert{"Overwrite?", "The file exists.", {"Replace", "Keep", "Cancel"}, {}, {}, 2, 0};
    QString _printed;
};

TEST_F(KVUserQuestionsTest, TakesOnATerminalWhatIsTypedAndWhatChangesNothingAtTheEnd) {
    EXPECT_EQ(answer("2\n").returnCode, 1001);
    EXPECT_TRUE(_printed.contains("Overwrite?\nThe file exists.\n  1) Replace\n  2) Keep\n  3) Cancel\n"));
    EXPECT_EQ(answer("Keep\n").returnCode, 1001);
    EXPECT_EQ(answer("\n").returnCode, 1000);
    EXPECT_EQ(answer("7\nno\n0\n1").returnCode, 1000);
    EXPECT_EQ(answer("").returnCode, 1002);
    EXPECT_EQ(answer("nonsense\n").returnCode, 1002);

    _alert.suppressionTitle = "Do not ask again";
    EXPECT_TRUE(answer("1\ny\n").isSuppressed);
    EXPECT_FALSE(answer("1\n").isSuppressed);

    _alert.accessoryItems = {"MP3", "AAC"};
    EXPECT_EQ(answer("2\n1\n").accessoryIndex, 1);
    EXPECT_EQ(answer("2\n").accessoryIndex, 0);
    EXPECT_EQ(answer("2\n").returnCode, 1002);
}

TEST_F(KVUserQuestionsTest, TakesTypedPathsThatExist) {
    write("folder/file.mov", "x");
    KVOpenPanel panel{"Where to?", false, true, false, url("folder"), {}};
    const auto open = [&](KVUserQuestions &terminal) { return terminal.runOpenPanel(panel); };
    EXPECT_EQ(asking("file.mov\nmissing\n../folder\n", open), QList<QUrl>{url("folder")});
    EXPECT_EQ(asking("", open), QList<QUrl>());
    panel.canChooseFiles = panel.allowsMultipleSelection = true;
    EXPECT_EQ(asking("file.mov\n.\n\nignored", open), (QList<QUrl>{url("folder/file.mov"), url("folder")}));

    const KVSavePanel save{"Save as", url("folder"), "Film.iso", {"iso"}};
    const auto run = [&](KVUserQuestions &terminal) { return terminal.runSavePanel(save); };
    EXPECT_EQ(asking("Other.iso\n", run), url("folder/Other.iso"));
    EXPECT_EQ(asking((path() + "\n").toUtf8(), run), url("Film.iso"));
    EXPECT_EQ(asking("\n", run), url("folder/Film.iso"));
    EXPECT_EQ(asking("", run), std::nullopt);
    write("folder/Film.iso", "mine");
    EXPECT_EQ(asking("\nfile.mov\nNew.iso\n", run), url("folder/New.iso")) << "a file is never replaced";
    EXPECT_EQ(asking("\n", run), std::nullopt);

    const KVTextPrompt prompt{"Name", "", "Film", {"OK", "Cancel"}};
    const auto ask = [&](KVUserQuestions &terminal) { return terminal.runTextPrompt(prompt); };
    EXPECT_EQ(asking(" Mine \r\n", ask), "Mine");
    EXPECT_EQ(asking("\n", ask), "Film");
    EXPECT_EQ(asking("", ask), std::nullopt);
}

TEST_F(KVUserQuestionsTest, TakesRelativePathsAsSeenFromWhereTheProgramWasStarted) {
    QDir().mkpath(path("folder"));
    const QString before = QDir::currentPath();
    QDir::setCurrent(path());
    const auto chosen = asking("folder\n", [](KVUserQuestions &terminal) {
        QDir::setCurrent("/");
        return terminal.runOpenPanel({.message = "Where to?"});
    });
    QDir::setCurrent(before);
    EXPECT_EQ(chosen, QList<QUrl>{url("folder")});
}

TEST_F(KVUserQuestionsTest, ChangesNothingWhereNobodyCanBeAskedAndSaysSo) {
    QStringList said;
    _alert.accessoryItems = {"MP3", "AAC"};
    _alert.accessoryItemThatChangesNothing = 1;
    KVUserQuestion::setResponder(
        std::make_shared<KVSilentQuestions>([&](const QString &line) { said.append(line); }));
    const auto response = KVUserQuestion::runModalOnMainThread(_alert);
    EXPECT_EQ(response.returnCode, 1002);
    EXPECT_EQ(response.accessoryIndex, 1);
    EXPECT_FALSE(KVUserQuestion::runModalOnMainThread(KVSavePanel{"Save as", {}, "Film.iso", {}}));
    EXPECT_EQ(said.size(), 2);
    EXPECT_EQ(said.first(), "Overwrite? Cancel (AAC)");

    KVUserQuestion::setResponder(nullptr);
    EXPECT_TRUE(KVUserQuestion::runModalOnMainThread(KVOpenPanel()).isEmpty());
}

TEST_F(KVUserQuestionsTest, AsksOnTheMainThreadForAnyThread) {
    const auto script = std::make_shared<KVScriptedQuestions>();
    script->textPromptResponses = {std::optional<QString>("first"), std::nullopt};
    KVUserQuestion::setResponder(script);
    std::vector<std::optional<QString>> answers;
    bool isDone = false;
    std::jthread worker([&] {
        for (const char *message : {"one", "two", "three"})
            answers.push_back(KVUserQuestion::runModalOnMainThread(KVTextPrompt{message, "", "default", {}}));
        KVMainThread::async([&] { isDone = true; });
    });
    ASSERT_TRUE(runUntil([&] { return isDone; }));
    EXPECT_EQ(answers, (std::vector<std::optional<QString>>{"first", std::nullopt, std::nullopt}));
    ASSERT_EQ(script->textPrompts.size(), 3U);
    EXPECT_EQ(script->textPrompts[2].messageText, "three");
}
