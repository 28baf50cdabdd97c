#include "main_ui/KVWindowTestCase.h"
#include "main_ui/main_window/KVNoticeBar.h"
#include "main_ui/main_window/refusals/KVRefusalsDialog.h"
#include "support/KVTestMedia.h"

#include <QMap>
#include <QPushButton>
#include <QTreeWidget>

#include <unistd.h>

/// A folder of good and bad files in one drop: the window alone shows what became of each, and why.
class KVMixedFolderTest : public KVWindowTestCase {
  protected:
    void cut(const QString &from, const QString &to) {
        const QByteArray whole = read(path(from));
        write(to, whole.first(whole.size() * 2 / 5));
    }

    /// Only the head of a file in fragments.
    void makeInitSegment(const QString &name) {
        KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=160x120", "-t", "0.4", "-movflags",
                           "+frag_keyframe+empty_moov+default_base_moof", path("fragments.mp4")});
        const QByteArray fragments = read(path("fragments.mp4"));
        write(name, fragments.first(fragments.indexOf("moof") - 4));
    }

    void makeGoodFiles() {
        KVTestMedia::clip(path("in/1.mp4"), 0.4);
        KVTestMedia::clip(path("in/2.mkv"), 0.4);
        tone("in/3.flac");
        tone("in/4.wav");
        KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=320x240", "-frames:v", "1", path("in/5.png")});
    }

    void makeBadFiles() {
        write("in/empty.mp4", "");
        write("in/text.mp4", "hello, this is a text\n");
        write("in/unknown.xyz", "no medium");
        write("in/protected.m4p", "music");
        write("in/notes.txt", "text");
        makeInitSegment("in/head.mp4");
        KVTestMedia::make({"-f", "lavfi", "-i", "testsrc2=size=160x120", "-t", "0.4", "-encryption_scheme",
                           "cenc-aes-ctr", "-encryption_key", "76a6c65c5ea762046bd749a2e632ccbb",
                           "-encryption_kid", "a7e61c373e219033c21091fa607bf3b8", path("in/encrypted.mp4")});
        KVTestMedia::clip(path("whole.mp4"), 8);
        cut("whole.mp4", "in/no index.mp4");
        KVTestMedia::clip(path("fast.mp4"), 8, "160x120", {"-movflags", "+faststart"});
        cut("fast.mp4", "in/half.mp4");
        cut("in/5.png", "in/half.png");
        write("in/text.png", "no picture");
        QFile::link(path("nowhere.mp4"), path("in/gone.mp4"));
        write("in/locked.wav", read(path("in/4.wav")));
        QFile::setPermissions(path("in/locked.wav"), {});
    }

    QString notice() {
        for (const auto *bar : window().findChildren<KVNoticeBar *>())
            if (bar->isVisible()) return bar->notice();
        return {};
    }

    /// The list behind "Show...": names and reasons.
    QMap<QString, QString> listedReasons() {
        for (auto *button : window().findChildren<QPushButton *>())
            if (button->isVisible() && button->text() == "Show...") button->click();
        QMap<QString, QString> reasons;
        const auto *list = window().findChild<KVRefusalsDialog *>();
        if (!list) return reasons;
        const auto *tree = list->findChild<QTreeWidget *>();
        for (int row = 0; row < tree->topLevelItemCount(); ++row)
            reasons.insert(tree->topLevelItem(row)->text(0), tree->topLevelItem(row)->text(2));
        return reasons;
    }

    bool areAllFinished() {
        if (KVConversionQueue::isAnyConversionRunning()) return false;
        for (const QString &title : titles())
            if (!QStringList{"Video", "Audio", "Picture"}.contains(title) &&
                stateOf(title) != KVConversionState::finished)
                return false;
        return true;
    }
};

TEST_F(KVMixedFolderTest, EveryFileIsAccountedForWithItsReason) {
    QDir(path()).mkdir("in");
    makeGoodFiles();
    makeBadFiles();
    drop({url("in")});
    const bool isLockedReadable = ::access(path("in/locked.wav").toUtf8().constData(), R_OK) == 0; // root
    const int refused = isLockedReadable ? 8 : 9;
    const QString count = QStringLiteral("%1 files were not added \u00b7 1 other file in the folders was "
                                         "skipped")
                              .arg(refused);
    ASSERT_TRUE(runUntil([&] { return notice() == count && !application->controller().isLoading(); }))
        << notice().toStdString();
    ASSERT_EQ(questions->alerts.size(), 1U);
    EXPECT_EQ(questions->alerts.front().messageText,
              "Kalvora cannot convert 'encrypted.mp4' because it is DRM-encrypted.");

    QMap<QString, QString> expected{
        {"empty.mp4", "The file is empty."},
        {"text.mp4", "Unrecognized file format."},
        {"no index.mp4", "The file is incomplete: the index that belongs to it is missing."},
        {"unknown.xyz", "Unrecognized file format."},
        {"head.mp4", "The file describes its tracks but contains no media data."},
        {"encrypted.mp4", "The file is DRM-encrypted."},
        {"gone.mp4", "No such file or folder."},
        {"protected.m4p", "Protected music files cannot be converted."},
        {"1 other file in the folders was skipped", ""},
    };
    if (!isLockedReadable) expected.insert("locked.wav", "There is no permission to read it.");
    EXPECT_EQ(listedReasons(), expected);

    application->start();
    ASSERT_TRUE(runUntil([&] { return areAllFinished(); }, 120));
    for (const char *good : {"1.mp4", "2.mkv", "3.flac", "4.wav", "5.png"})
        EXPECT_EQ(statusOf(good), "Done.") << good;
    EXPECT_EQ(statusOf("half.png"), "The picture is incomplete.");
    EXPECT_EQ(statusOf("text.png"),
              "The file holds no picture of a kind that can be read, whatever its name says.");
    EXPECT_TRUE(statusOf("half.mp4").startsWith("Done, but only 0:03 of 0:08"))
        << statusOf("half.mp4").toStdString();
    EXPECT_TRUE(runUntil([&] { return notice() == count; })) << "the count stays";
}
