#include "util/KVOutputClaim.h"

#include "support/KVTestCase.h"
#include "util/KVSourceNames.h"

#include <QProcess>

#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

#include <unistd.h>

namespace {

using Outcome = KVOutputClaim::Outcome;

class KVOutputClaimTest : public KVTestCase {};

TEST_F(KVOutputClaimTest, OneOfManyThreadsGetsTheName) {
    std::atomic<int> winners = 0;
    std::vector<KVOutputClaim::Attempt> attempts(16);
    std::vector<std::thread> threads;
    for (auto &attempt : attempts)
        threads.emplace_back([&] {
            attempt = KVOutputClaim::attempt(url("out.mp4"));
            winners += attempt.outcome == Outcome::claimed;
        });
    for (auto &thread : threads)
        thread.join();
    EXPECT_EQ(winners, 1);
    for (const auto &attempt : attempts)
        EXPECT_EQ(attempt.claim != nullptr, attempt.outcome == Outcome::claimed);
}

TEST_F(KVOutputClaimTest, DroppedClaimRemovesItsFileAndKeptOneLeavesIt) {
    auto attempt = KVOutputClaim::attempt(url("a.mp4"));
    write("a.mp4", "half of it");
    attempt.claim.reset();
    EXPECT_FALSE(QFile::exists(path("a.mp4")));

    attempt = KVOutputClaim::attempt(url("a.mp4"));
    ASSERT_EQ(attempt.outcome, Outcome::claimed) << "the name is free again";
    write("a.mp4", "whole");
    attempt.claim->keep();
    attempt.claim.reset();
    EXPECT_EQ(read(path("a.mp4")), "whole");
}

TEST_F(KVOutputClaimTest, WhatStandsThereIsNeverTouched) {
    write("file.mp4", "the user's");
    QDir(path()).mkdir("folder");
    ASSERT_TRUE(QFile::link(path("nowhere"), path("dangling")));
    for (const char *name : {"file.mp4", "folder", "dangling"})
        EXPECT_EQ(KVOutputClaim::attempt(url(name)).outcome, Outcome::nameTaken) << name;
    EXPECT_EQ(read(path("file.mp4")), "the user's");
}

TEST_F(KVOutputClaimTest, NameThatCannotBeCreatedIsClaimedWithinTheProcess) {
    auto first = KVOutputClaim::attempt(url("missing/a.mp4"));
    EXPECT_EQ(first.outcome, Outcome::claimed);
    EXPECT_EQ(KVOutputClaim::attempt(url("missing/../missing/a.mp4")).outcome, Outcome::nameTaken);
    first.claim.reset();
    EXPECT_EQ(KVOutputClaim::attempt(url("missing/a.mp4")).outcome, Outcome::claimed);
}

TEST_F(KVOutputClaimTest, ClaimWhoseFileVanishedStillHoldsTheName) {
    const auto first = KVOutputClaim::attempt(url("a.mp4"));
    QFile::remove(path("a.mp4"));
    EXPECT_EQ(KVOutputClaim::attempt(url("a.mp4")).outcome, Outcome::nameTaken);
}

TEST_F(KVOutputClaimTest, RemovesNoFileThatAnotherProgramPutThere) {
    auto replaced = KVOutputClaim::attempt(url("replaced.mp4")).claim;
    write("other", "another program's");
    ASSERT_EQ(::rename(path("other").toUtf8().constData(), path("replaced.mp4").toUtf8().constData()), 0);
    auto newlyMade = KVOutputClaim::attempt(url("new.mp4")).claim;
    QFile::remove(path("new.mp4"));
    write("new.mp4", "another program's"); // may get the number of the inode that is gone
    for (auto *claim : {&replaced, &newlyMade}) {
        const QString output = (*claim)->url().toLocalFile();
        EXPECT_FALSE((*claim)->isInPlace());
        (*claim)->discard();
        claim->reset();
        EXPECT_EQ(read(output), "another program's");
    }
}

TEST_F(KVOutputClaimTest, NamesOfSourcesAreTakenAlsoIfTheFilesAreMissing) {
    write("real/Clip.mp4", "a source");
    ASSERT_TRUE(QFile::link(path("real"), path("linked")));
    ASSERT_TRUE(QFile::link(path("real/Clip.mp4"), path("link.mp4")));
    auto folder = std::make_unique<KVSourceNames>(QList<QUrl>{url("linked/Clip.mp4")});
    auto link = std::make_unique<KVSourceNames>(QList<QUrl>{url("link.mp4")});
    EXPECT_EQ(KVOutputClaim::attempt(url("real/clip.mp4")).outcome, Outcome::claimed) << "another file";
    QFile::remove(path("real/Clip.mp4"));
    const auto outcomeFor = [&](const QString &name) { return KVOutputClaim::attempt(url(name)).outcome; };
    for (const char *name : {"real/Clip.mp4", "linked/../linked/Clip.mp4", "real/clip.MP4"})
        EXPECT_EQ(outcomeFor(name), Outcome::nameTaken) << name;
    EXPECT_EQ(outcomeFor("Clip.mp4"), Outcome::claimed) << "another folder";
    EXPECT_EQ(outcomeFor("real/Clip.mp4.mp4"), Outcome::claimed);
    folder.reset();
    EXPECT_EQ(outcomeFor("real/Clip.mp4"), Outcome::nameTaken) << "the link leads to it";
    link.reset();
    EXPECT_EQ(outcomeFor("real/Clip.mp4"), Outcome::claimed);

    write("disc.iso", "a source");
    const KVSourceNames disc({url("disc.iso")});
    ASSERT_EQ(::link(path("disc.iso").toUtf8().constData(), path("hard.iso").toUtf8().constData()), 0);
    ASSERT_TRUE(QFile::link(path("disc.iso"), path("soft.iso")));
    for (const char *name : {"disc.iso", "hard.iso", "soft.iso"})
        EXPECT_EQ(KVOutputClaim::replacing(url(name)), nullptr) << name;
    EXPECT_EQ(read(path("disc.iso")), "a source");
}

TEST_F(KVOutputClaimTest, DiscardingAtOnceWaitsForTheFirstByte) {
    const auto claim = KVOutputClaim::attempt(url("a.mp4")).claim;
    claim->discardWhatIsWritten();
    EXPECT_TRUE(QFile::exists(path("a.mp4"))); // a child would make a new one, which would not be ours
    write("a.mp4", "half");
    claim->discardWhatIsWritten();
    EXPECT_FALSE(QFile::exists(path("a.mp4")));
    EXPECT_EQ(KVOutputClaim::attempt(url("a.mp4")).outcome, Outcome::nameTaken);
}

TEST_F(KVOutputClaimTest, ReplacedFileGoesOnlyOnceItIsWrittenTo) {
    EXPECT_EQ(KVOutputClaim::replacing(url("missing.iso")), nullptr);
    write("a.iso", "the user's");
    auto claim = KVOutputClaim::replacing(url("a.iso"));
    ASSERT_TRUE(claim);
    EXPECT_EQ(KVOutputClaim::replacing(url("a.iso")), nullptr);
    claim.reset();
    EXPECT_EQ(read(path("a.iso")), "the user's");
    claim = KVOutputClaim::replacing(url("a.iso"));
    write("a.iso", "half of the new one");
    claim.reset();
    EXPECT_FALSE(QFile::exists(path("a.iso")));
}

TEST_F(KVOutputClaimTest, RemovesWhatTheRealToolsWrite) {
    QDir(path()).mkdir("disc");
    write("disc/a", "x");
    const QString claimed = path("out.mp4");
    const std::vector<std::pair<QString, QStringList>> tools{
        {"ffmpeg",
         {"-v", "error", "-nostdin", "-y", "-f", "lavfi", "-i", "sine=duration=0.1", "-movflags",
          "+faststart", claimed}},
        {"mkisofs", {"-quiet", "-o", claimed, path("disc")}}};
    for (const auto &[tool, arguments] : tools) {
        auto claim = KVOutputClaim::attempt(url("out.mp4")).claim;
        ASSERT_EQ(QProcess::execute(KV_BUILD_DIRECTORY "/share/kalvora/resources/" + tool, arguments), 0);
        EXPECT_GT(QFileInfo(claimed).size(), 0) << tool.toStdString();
        EXPECT_TRUE(claim->isInPlace()) << tool.toStdString();
        claim.reset();
        EXPECT_FALSE(QFile::exists(claimed)) << tool.toStdString();
    }
}

} // namespace
