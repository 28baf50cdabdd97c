#include "controllers/KVTimeLeft.h"

#include "support/KVTestCase.h"

#include <limits>

namespace {

KVTimeLeft::Row runningRow(double secondsOfMedia, double progress, double secondsLeft,
                           int numberOfTasks = 1) {
    return {false, secondsOfMedia, secondsLeft, progress, numberOfTasks};
}

KVTimeLeft::Row waitingRow(double secondsOfMedia, int numberOfTasks = 1) {
    return {true, secondsOfMedia, 0, 0, numberOfTasks};
}

constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(KVTimeLeftTest, TheTextSaysWhatTheTimeCovers) {
    // Half of 100 seconds is left, at a speed of 5.
    const KVTimeLeft::Row atSpeedFive = runningRow(100, 0.5, 10);
    const struct {
        const char *name;
        std::vector<KVTimeLeft::Queue> queues;
        const char *text;
    } rows[] = {
        {"nothing", {}, "0 sec"},
        {"the longest of all that run", {{true, 2, {atSpeedFive, runningRow(100, 0.1, 34)}}}, "34 sec"},
        {"the longest of all queues",
         {{true, 1, {atSpeedFive}}, {true, 1, {runningRow(9, 0.1, 70)}}},
         "1 min 10 sec"},
        {"an undefined estimate of what runs", {{true, 1, {runningRow(100, 0, infinity)}}}, "--"},
        {"what waits comes after it",
         {{true, 1, {atSpeedFive, waitingRow(50), waitingRow(100)}}},
         "About 40 sec for all 3 files"},
        {"two at once",
         {{true, 2, {atSpeedFive, atSpeedFive, waitingRow(50), waitingRow(100)}}},
         "About 30 sec for all 4 files"},
        {"a free worker takes it now",
         {{true, 2, {atSpeedFive, waitingRow(40)}}},
         "About 10 sec for all 2 files"},
        {"coarse steps", {{true, 1, {atSpeedFive, waitingRow(405)}}}, "About 1 min 40 sec for all 2 files"},
        {"a row that has just begun",
         {{true, 2, {atSpeedFive, runningRow(100, 0, 0), waitingRow(50)}}},
         "About 20 sec for all 3 files"},
        {"the queue was not started",
         {{false, 0, {atSpeedFive, waitingRow(50), waitingRow(50)}}},
         "Current files: 10 sec, 2 more waiting"},
        {"one of two queues was not started",
         {{true, 1, {atSpeedFive}}, {false, 0, {waitingRow(50)}}},
         "Current files: 10 sec, 1 more waiting"},
        {"no duration", {{true, 1, {atSpeedFive, waitingRow(0)}}}, "Current files: 10 sec, 1 more waiting"},
        {"no speed yet", {{true, 1, {runningRow(100, 0, 0), waitingRow(50)}}}, "1 more waiting"},
        {"a disc",
         {{true, 1, {runningRow(100, 0.5, 10, 4), waitingRow(50)}}},
         "Current files: 10 sec, 1 more waiting"},
        {"a disc to come",
         {{true, 1, {atSpeedFive, waitingRow(50, 4)}}},
         "Current files: 10 sec, 1 more waiting"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(KVTimeLeft::text(row.queues), row.text) << row.name;
}
