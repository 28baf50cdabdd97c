#include "util/KVBackgroundQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>

namespace {

TEST(KVBackgroundQueueTest, RunsAllWorkOnAtMostItsThreads) {
    std::atomic<int> running = 0, most = 0;
    std::latch left(40);
    KVBackgroundQueue queue(2);
    for (int work = 0; work < 40; ++work)
        queue.async([&](const std::stop_token &) {
            const int now = ++running;
            for (int seen = most; seen < now && !most.compare_exchange_weak(seen, now);) {
            }
            std::this_thread::yield();
            --running;
            left.count_down();
        });
    left.wait();
    EXPECT_LE(most, 2);
}

TEST(KVBackgroundQueueTest, FinishesWithoutWaitingForWhatIsNoLongerWanted) {
    std::atomic<int> begun = 0;
    std::latch first(1);
    KVBackgroundQueue queue(1);
    for (int work = 0; work < 3; ++work)
        queue.async([&](const std::stop_token &stop) {
            ++begun;
            first.count_down(begun == 1);
            while (!stop.stop_requested())
                std::this_thread::yield();
        });
    first.wait();
    queue.finish();
    queue.async([&](const std::stop_token &) { ++begun; });
    EXPECT_EQ(begun, 1);
}

TEST(KVBackgroundQueueTest, BeginsNothingWhileItIsHeld) {
    std::atomic<int> begun = 0;
    std::latch left(1);
    KVBackgroundQueue queue(1);
    queue.setIsHeld(true);
    queue.async([&](const std::stop_token &) {
        ++begun;
        left.count_down();
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(begun, 0);
    queue.setIsHeld(false);
    left.wait();
}

} // namespace
