#include "platform/KVConditionLock.h"
#include "support/KVTestCase.h"

#include <thread>

using KVConditionLockTest = KVTestCase;

TEST_F(KVConditionLockTest, HandsTheLockOnByItsCondition) {
    constexpr int rounds = 200;
    KVConditionLock lock(0);
    std::vector<int> order; // touched under the lock only
    const auto takeTurns = [&](int own, int next) {
        for (int round = 0; round < rounds; ++round) {
            lock.lockWhenCondition(own);
            order.push_back(own);
            lock.unlockWithCondition(next);
        }
    };
    {
        const std::jthread one([&] { takeTurns(0, 1); });
        const std::jthread two([&] { takeTurns(1, 2); });
        const std::jthread three([&] { takeTurns(2, 0); });
    }
    ASSERT_EQ(order.size(), 3U * rounds);
    for (size_t index = 0; index < order.size(); ++index)
        ASSERT_EQ(order[index], static_cast<int>(index % 3));
    lock.lock();
    EXPECT_EQ(lock.condition(), 0) << "readable while the lock is held";
    lock.unlock();
}
