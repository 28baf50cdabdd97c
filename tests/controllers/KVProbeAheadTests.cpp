#include "controllers/KVProbeAhead.h"

#include "support/KVTestCase.h"
#include "video_info/media_file/KVPictureFile.h"

#include <atomic>
#include <latch>
#include <thread>

namespace {

KVProbeAhead::Result picture(const QUrl &url) {
    return std::make_shared<KVPictureFile>(url);
}

bool waitFor(const std::function<bool()> &isDone) {
    for (int look = 0; look < 1000 && !isDone(); ++look)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return isDone();
}

} // namespace

class KVProbeAheadTest : public KVTestCase {
  protected:
    QUrl file(const QString &name) { return QUrl::fromLocalFile(write(name, "content")); }
    KVProbeAhead::Probe countingProbe() {
        return [this](const QUrl &url) {
            ++probes;
            return picture(url);
        };
    }

    std::atomic<int> probes = 0;
};

TEST_F(KVProbeAheadTest, LooksAtSeveralFilesAtOnceAndAnswersInTurn) {
    std::latch both(2);
    KVProbeAhead ahead(
        [&](const QUrl &url) {
            both.arrive_and_wait(); // comes back only if two look at the same time
            return picture(url);
        },
        2);
    const auto first = ahead.expect(file("1"));
    const auto second = ahead.expect(file("2"));
    EXPECT_EQ((*ahead.take(first))->url(), url("1"));
    ahead.forget(first);
    EXPECT_EQ((*ahead.take(second))->url(), url("2"));
    ahead.forget(second);
}

TEST_F(KVProbeAheadTest, KeepsWhatWasPeekedAtForTheTurn) {
    KVProbeAhead ahead(countingProbe(), 1);
    std::vector<std::shared_ptr<KVProbeAhead::Ticket>> tickets;
    for (int number = 0; number < 20; ++number) // more than it would look at by itself
        tickets.push_back(ahead.expect(file(QString::number(number))));
    for (const auto &ticket : tickets)
        ASSERT_TRUE(ahead.peek(ticket));
    EXPECT_EQ(probes, 20);
    for (const auto &ticket : tickets) {
        EXPECT_TRUE(ahead.take(ticket));
        EXPECT_FALSE(ahead.peek(ticket)) << "its turn has come";
        ahead.forget(ticket);
    }
    EXPECT_EQ(probes, 20);
}

TEST_F(KVProbeAheadTest, StaysAFewFilesAhead) {
    KVProbeAhead ahead(countingProbe(), 1);
    std::vector<std::shared_ptr<KVProbeAhead::Ticket>> tickets;
    for (int number = 0; number < 100; ++number)
        tickets.push_back(ahead.expect(file(QString::number(number))));
    EXPECT_TRUE(waitFor([&] { return probes == 4; }));
    ahead.forget(tickets[0]);
    EXPECT_TRUE(waitFor([&] { return probes == 5; }));
    for (std::size_t number = 1; number < tickets.size(); ++number) {
        ASSERT_EQ((*ahead.take(tickets[number]))->url(), url(QString::number(number)));
        ahead.forget(tickets[number]);
    }
    EXPECT_EQ(probes, 100);
}

TEST_F(KVProbeAheadTest, AFileThatChangedMeanwhileIsLookedAtAgain) {
    KVProbeAhead ahead(countingProbe(), 1);
    const auto written = ahead.expect(file("written"));
    const auto removed = ahead.expect(file("removed"));
    const auto kept = ahead.expect(file("kept"));
    ASSERT_TRUE(waitFor([&] { return probes == 3; }));
    write("written", "longer than before");
    QFile::remove(path("removed"));
    for (const auto &ticket : {written, removed, kept}) {
        EXPECT_TRUE(ahead.take(ticket));
        ahead.forget(ticket);
    }
    EXPECT_EQ(probes, 5);
}

TEST_F(KVProbeAheadTest, BeginsNothingAfterItIsStopped) {
    KVProbeAhead ahead(countingProbe(), 2);
    ahead.stop();
    const auto ticket = ahead.expect(file("late"));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(probes, 0);
    EXPECT_TRUE(ahead.take(ticket)); // the taker looks by itself
    EXPECT_EQ(probes, 1);
}

TEST_F(KVProbeAheadTest, LeavesTheProcessorsToOthersAtWorkButOne) {
    std::atomic<int> atOnce = 0, most = 0;
    const auto probe = [&](const QUrl &url) {
        most = std::max(most.load(), ++atOnce);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        --atOnce;
        ++probes;
        return picture(url);
    };
    KVProbeAhead ahead(probe, 3, [] { return 7; });
    for (int number = 0; number < 9; ++number)
        ahead.expect(file(QString::number(number)));
    EXPECT_TRUE(waitFor([&] { return probes == 9; }));
    EXPECT_EQ(most, 1);
}
