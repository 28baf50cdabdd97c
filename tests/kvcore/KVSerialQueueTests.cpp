#include "kvcore/KVSerialQueue.h"
#include "support/KVTestCase.h"

#include <atomic>
#include <vector>

namespace {

class KVSerialQueueTest : public KVTestCase {};

TEST_F(KVSerialQueueTest, RunsBlocksInOrderAlsoThoseThatABlockAdds) {
    KVSerialQueue queue("test.order");
    std::vector<int> order; // the queue's thread alone writes it
    queue.async([&] {
        order.push_back(1);
        queue.async([&] { order.push_back(3); });
    });
    queue.async([&] { order.push_back(2); });
    queue.waitUntilIdle();
    // The block of the first block may have come before the second was handed over.
    EXPECT_EQ(order.front(), 1);
    EXPECT_EQ(order.size(), 3U);
    EXPECT_TRUE(queue.isIdle());
}

TEST_F(KVSerialQueueTest, EndsWithoutTheBlocksThatHaveNotBegun) {
    std::atomic<bool> hasBegun = false, mayEnd = false, hasEnded = false;
    std::atomic<int> laterBlocks = 0;
    {
        KVSerialQueue queue("test.end");
        queue.async([&] {
            hasBegun = true;
            hasBegun.notify_all();
            mayEnd.wait(false);
            hasEnded = true;
        });
        for (int i = 0; i < 10; ++i)
            queue.async([&] { ++laterBlocks; });
        hasBegun.wait(false);
        queue.removeAll();
        mayEnd = true;
        mayEnd.notify_all();
    }
    EXPECT_TRUE(hasEnded);
    EXPECT_EQ(laterBlocks, 0);
}

} // namespace
