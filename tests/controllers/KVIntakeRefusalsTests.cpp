#include "controllers/KVIntakeRefusals.h"

#include "support/KVTestCase.h"

#include <thread>

namespace {

class KVIntakeRefusalsTest : public KVTestCase {
  protected:
    using Kind = KVIntakeRefusal::Kind;

    void refuse(const QString &path, const QString &reason, Kind kind = Kind::unreadable,
                bool isFolderMember = false) const {
        refusals->intakeDidRefuse({kind, path, reason, isFolderMember});
    }
    /// Lets the main thread take what was reported.
    bool waitForSummary(const QString &summary) const {
        return runUntil([&] { return refusals->summary() == summary; }, 5);
    }

    const std::shared_ptr<KVIntakeRefusals> refusals = std::make_shared<KVIntakeRefusals>();
};

TEST_F(KVIntakeRefusalsTest, CountsFilesAndKeepsExpectedOnesApart) {
    EXPECT_TRUE(refusals->isEmpty());
    EXPECT_EQ(refusals->summary(), "");
    refuse("/in/cover.txt", "filtered", Kind::filtered, true);
    ASSERT_TRUE(waitForSummary("1 other file in the folders was skipped"));
    refuse("/in/notes.nfo", "filtered", Kind::filtered, true);
    ASSERT_TRUE(waitForSummary("2 other files in the folders were skipped"));
    // A file that the user named is no expected one, whatever its extension.
    refuse("/in/named.txt", "filtered", Kind::filtered);
    const QString skipped = QStringLiteral(" \u00b7 2 other files in the folders were skipped");
    ASSERT_TRUE(waitForSummary("1 file was not added" + skipped));
    refuse("/in/a.mp3", "empty");
    ASSERT_TRUE(waitForSummary("2 files were not added" + skipped));
    EXPECT_EQ(refusals->skippedText(), "2 other files in the folders were skipped");
    EXPECT_EQ(refusals->text(), "named.txt\t/in\tfiltered\na.mp3\t/in\tempty\n"
                                "cover.txt\t/in\tfiltered\nnotes.nfo\t/in\tfiltered\n");
    refusals->clear();
    EXPECT_TRUE(refusals->isEmpty());
    EXPECT_EQ(refusals->summary(), "");
}

TEST_F(KVIntakeRefusalsTest, ListsAFileOnceWithItsLatestReason) {
    refuse("/in/a.mp3", "empty");
    refuse("/in/b.mp3", "empty");
    refuse("/in/a.mp3", "no permission");
    refuse("/in/c.txt", "filtered", Kind::filtered, true);
    refuse("/in/c.txt", "filtered", Kind::filtered, true);
    ASSERT_TRUE(waitForSummary("2 files were not added \u00b7 1 other file in the folders was skipped"));
    ASSERT_TRUE(runUntil([&] { return refusals->refusals().first().reason == "no permission"; }, 5));
    EXPECT_EQ(refusals->refusals().size(), 2);
    ASSERT_TRUE(runUntil([&] { return !refusals->skippedText().isEmpty(); }, 5));
    EXPECT_EQ(refusals->skippedMembers().size(), 1);
}

TEST_F(KVIntakeRefusalsTest, OffersADiscOnceAndForgetsWhatIsInsideWhenItIsAdded) {
    const QUrl disc = QUrl::fromLocalFile("/in/Film/VIDEO_TS");
    refusals->intakeDidMeetDisc(disc);
    ASSERT_TRUE(waitForSummary("The folder holds a DVD"));
    refusals->intakeDidMeetDisc(disc);
    refusals->intakeDidMeetDisc(QUrl::fromLocalFile("/in/Other/VIDEO_TS"));
    ASSERT_TRUE(waitForSummary("The folders hold 2 DVDs"));
    refuse("/in/Film/VIDEO_TS/VIDEO_TS.IFO", "unknown", Kind::unreadable, true);
    refuse("/in/Film/notes.ogg", "unknown", Kind::unreadable, true);
    ASSERT_TRUE(waitForSummary("2 files were not added"));
    refusals->removeDisc(disc);
    ASSERT_EQ(refusals->refusals().size(), 1);
    EXPECT_EQ(refusals->discs().size(), 1);
    // The rest is still known by its path.
    refuse("/in/Film/notes.ogg", "empty", Kind::unreadable, true);
    ASSERT_TRUE(runUntil([&] { return refusals->refusals().first().reason == "empty"; }, 5));
    EXPECT_EQ(refusals->refusals().size(), 1);
}

TEST_F(KVIntakeRefusalsTest, TakesReportsOfAnyThreadAndPostsChangesOnTheMainThread) {
    const auto mainThread = std::this_thread::get_id();
    int changes = 0;
    const auto observation = KVNotificationCenter::defaultCenter().addObserver<KVIntakeRefusals>(
        IntakeRefusalsDidChange,
        [&](const auto &) {
            EXPECT_EQ(std::this_thread::get_id(), mainThread);
            ++changes;
        },
        refusals);
    std::jthread([this] {
        for (int i = 0; i < 50; ++i)
            refuse(QStringLiteral("/in/%1.mp3").arg(i), "empty");
    }).join();
    ASSERT_TRUE(waitForSummary("50 files were not added"));
    EXPECT_EQ(changes, 50);
}

} // namespace
