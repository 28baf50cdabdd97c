#include "kvcore/KVBookmark.h"
#include "main_ui/KVWindowTestCase.h"
#include "util/KVPreferenceKeys.h"

#include <QDir>

/// What a user may hand to the window by mistake or bad luck.
class KVBadInputTest : public KVWindowTestCase {};

TEST_F(KVBadInputTest, ThousandsOfTextFilesAreNoMatter) {
    QDir(path()).mkdir("notes");
    for (int i = 0; i < 5000; ++i)
        write(QStringLiteral("notes/%1.txt").arg(i), "x");
    write("notes/readme", "no extension");
    tone("notes/tone.wav");
    drop({url("notes")});
    ASSERT_TRUE(waitForRows(2));
    EXPECT_EQ(titles(), (QStringList{"Audio", "tone.wav"}));
}

TEST_F(KVBadInputTest, NamesAreShownWhateverTheyAre) {
    const QString longest = QString(251, 'n') + ".wav";
    const QString rightToLeft = QStringLiteral("\u05e9\u05dc\u05d5\u05dd.wav");
    const QString lineBreak = QStringLiteral("one\ntwo & three.wav");
    drop({tone(longest), tone(rightToLeft), tone(lineBreak), QUrl("https://example.org/a.wav"),
          QUrl("data:,x"), QUrl()});
    ASSERT_TRUE(waitForRows(4));
    EXPECT_EQ(titles(), (QStringList{"Audio", longest, rightToLeft, lineBreak}));
    EXPECT_FALSE(window().grab().isNull());

    application->start();
    ASSERT_TRUE(runUntil([&] { return stateOf(lineBreak) == KVConversionState::finished; }) &&
                waitUntilIdle());
    for (const QString &name : {longest, rightToLeft, lineBreak})
        EXPECT_TRUE(rowOf(name).data(KVQueueTableModel::isSuccessfulRole).toBool()) << name.toStdString();
    EXPECT_TRUE(questions->alerts.empty());
}

TEST_F(KVBadInputTest, AFileThatVanishesBeforeTheStartFailsAloneAndIsTold) {
    drop({tone("a.wav"), tone("b.wav")});
    ASSERT_TRUE(waitForRows(3));
    QFile::remove(path("a.wav"));
    application->start();
    ASSERT_TRUE(runUntil([&] { return !questions->alerts.empty(); }));
    EXPECT_EQ(statusOf("a.wav"),
              "The file to be converted cannot be found: it has been moved, renamed or removed.");
    EXPECT_TRUE(statusOf("b.wav").startsWith("Done"));
    EXPECT_TRUE(
        questions->alerts.front().messageText.startsWith("The file to be converted cannot be found."));
}

TEST_F(KVBadInputTest, ADestinationThatGoesInTheMiddleEndsInAClearFailure) {
    QDir(path()).mkdir("out");
    KVPreferences::shared().setBoolean(false, KVPreferenceKeys::SaveToSourceFolder);
    KVAppScopeBookmarksManager::setURL(url("out"), KVPreferenceKeys::FixedDestinationBookmark);
    drop({tone("a.wav", 120), tone("b.wav", 120)});
    ASSERT_TRUE(waitForRows(3));
    application->start();
    ASSERT_TRUE(waitForProgress("a.wav"));
    QDir(path("out")).removeRecursively();
    ASSERT_TRUE(waitUntilIdle() && runUntil([&] { return stateOf("b.wav") == KVConversionState::finished; }));
    EXPECT_FALSE(rowOf("a.wav").data(KVQueueTableModel::isSuccessfulRole).toBool());
    ASSERT_TRUE(runUntil([&] { return !questions->alerts.empty(); }));
    EXPECT_TRUE(questions->alerts.front().messageText.startsWith("The destination folder has been moved"));
}
