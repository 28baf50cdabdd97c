#include "kvcore/KVNotificationCenter.h"
#include "kvcore/KVWeakArray.h"
#include "support/KVTestCase.h"

#include <optional>
#include <thread>

namespace {

constexpr KVNotificationName<int> counted{"Counted"};
constexpr KVNotificationName<int> other{"Other"};

} // namespace

class KVNotificationCenterTest : public KVTestCase {
  protected:
    KVNotificationCenter _center;
    std::vector<int> _seen;

    auto note(int mark) {
        return [this, mark](const std::shared_ptr<int> &) { _seen.push_back(mark); };
    }
};

TEST_F(KVNotificationCenterTest, TellsByNameAndByObjectUntilTheObservationEnds) {
    const auto one = std::make_shared<int>(1);
    const auto two = std::make_shared<int>(2);
    auto all = _center.addObserver(
        counted, std::function([&](const std::shared_ptr<int> &object) { _seen.push_back(*object); }));
    const auto ofTwo = _center.addObserver(counted, std::function(note(20)), two);
    const auto elsewhere = _center.addObserver(other, std::function(note(30)));

    _center.post(counted, one);
    _center.post(counted, two);
    auto moved = std::move(all);
    _center.post(counted, one);
    moved = {};
    _center.post(counted, one);
    EXPECT_EQ(_seen, (std::vector{1, 2, 20, 1}));
}

TEST_F(KVNotificationCenterTest, AllowsObserversToDropAddAndPostMeanwhile) {
    const auto object = std::make_shared<int>(0);
    std::optional<KVNotificationCenter::Observation> own;
    std::optional<KVNotificationCenter::Observation> next;
    std::optional<KVNotificationCenter::Observation> added;
    own = _center.addObserver(counted, std::function([&](const std::shared_ptr<int> &) {
                                  _seen.push_back(1);
                                  own.reset();
                                  next.reset(); // is not called any more, not even by this post
                                  added = _center.addObserver(counted, std::function(note(3)));
                                  _center.post(other, object);
                              }));
    next = _center.addObserver(counted, std::function(note(2)));
    const auto last = _center.addObserver(counted, std::function(note(4)));
    const auto nested = _center.addObserver(other, std::function(note(5)));

    _center.post(counted, object);
    EXPECT_EQ(_seen, (std::vector{1, 5, 4}));
    _seen.clear();
    _center.post(counted, object);
    EXPECT_EQ(_seen, (std::vector{4, 3}));
}

TEST_F(KVNotificationCenterTest, ServesSeveralThreads) {
    std::atomic<int> count = 0;
    const auto steady =
        _center.addObserver(counted, std::function([&](const std::shared_ptr<int> &) { ++count; }));
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 4; ++thread)
            threads.emplace_back([&] {
                for (int round = 0; round < 100; ++round) {
                    const auto brief =
                        _center.addObserver(counted, std::function([](const std::shared_ptr<int> &) {}));
                    _center.post(counted, std::make_shared<int>(round));
                }
            });
    }
    EXPECT_EQ(count, 400);
}

TEST_F(KVNotificationCenterTest, WeakArrayKeepsNobodyAliveAndLetsListenersLeaveMeanwhile) {
    KVWeakArray<int> list;
    auto one = std::make_shared<int>(1);
    const auto two = std::make_shared<int>(2);
    list.append(one);
    list.append(two);
    for (const auto &value : list.allValues())
        list.remove(value);
    EXPECT_TRUE(list.allValues().empty());
    list.append(one);
    list.append(two);
    one.reset();
    EXPECT_EQ(list.allValues(), std::vector{two});
    EXPECT_TRUE(list.contains(two));
}
