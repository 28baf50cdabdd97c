#include "util/KVOutputClaim.h"

#include "support/KVTestCase.h"

#include <atomic>
#include <thread>
#include <vector>

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

} // namespace
