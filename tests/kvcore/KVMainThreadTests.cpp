#include "kvcore/KVMainThread.h"
#include "support/KVTestCase.h"

#include <numeric>
#include <thread>
#include <vector>

using KVMainThreadTest = KVTestCase;

TEST_F(KVMainThreadTest, RunsBlocksOfSeveralThreadsEachInTheirOrder) {
    constexpr int threadCount = 4;
    constexpr int blockCount = 200;
    std::vector<std::vector<int>> seen(threadCount); // touched on the main thread only
    int total = 0;
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < threadCount; ++thread)
        threads.emplace_back([&, thread] {
            for (int block = 0; block < blockCount; ++block)
                KVMainThread::async([&, thread, block] {
                    EXPECT_TRUE(KVMainThread::isCurrent());
                    seen[static_cast<size_t>(thread)].push_back(block);
                    ++total;
                });
        });

    ASSERT_TRUE(runUntil([&] { return total == threadCount * blockCount; }));
    std::vector<int> expected(blockCount);
    std::iota(expected.begin(), expected.end(), 0);
    for (const auto &order : seen)
        EXPECT_EQ(order, expected);
}

TEST_F(KVMainThreadTest, WaitsForABlockThatItHandsOverAndRunsItAtOnceOnTheMainThread) {
    bool ranAtOnce = false;
    KVMainThread::syncOrNow([&] { ranAtOnce = true; });
    EXPECT_TRUE(ranAtOnce);

    bool isFinished = false;
    int written = 0; // plain on purpose: the hand-over has to order the accesses
    std::jthread worker([&] {
        EXPECT_FALSE(KVMainThread::isCurrent());
        KVMainThread::syncOrNow([&] { written = 7; });
        EXPECT_EQ(written, 7);
        KVMainThread::async([&] { isFinished = true; });
    });
    EXPECT_TRUE(runUntil([&] { return isFinished; }));
}

TEST_F(KVMainThreadTest, HandlesLaterBlocksWhileABlockAsksAModalQuestion) {
    std::vector<int> order;
    bool isAnswered = false;
    KVMainThread::async([&] {
        order.push_back(1);
        EXPECT_TRUE(runUntil([&] { return isAnswered; }));
        order.push_back(4);
    });
    KVMainThread::async([&] { order.push_back(2); });
    KVMainThread::async([&] {
        order.push_back(3);
        isAnswered = true;
    });
    ASSERT_TRUE(runUntil([&] { return order.size() == 4; }));
    EXPECT_EQ(order, (std::vector{1, 2, 3, 4}));
}

TEST_F(KVMainThreadTest, RunsDelayedBlocksWhenTheyAreDueWhereverTheyWereAskedFor) {
    std::vector<int> order;
    std::jthread worker([&] { KVMainThread::after(0.2, [&] { order.push_back(2); }); });
    worker.join();
    KVMainThread::after(0.02, [&] { order.push_back(1); });
    ASSERT_TRUE(runUntil([&] { return order.size() == 2; }));
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST_F(KVMainThreadTest, GivesUpWaitingWhenTheTimeIsUp) {
    EXPECT_FALSE(runUntil([] { return false; }, 0.05));
    EXPECT_TRUE(runUntil([] { return true; }, 0));
}
