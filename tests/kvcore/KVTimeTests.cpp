#include "kvcore/KVError.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVTime.h"
#include "support/KVTestCase.h"

#include <cmath>
#include <limits>

using KVTimeTest = KVTestCase;

TEST_F(KVTimeTest, TellsADurationInTwoUnitsAtMost) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    const std::vector<std::pair<double, const char *>> rows{
        {0, "0 sec"},         {5.4, "5 sec"},        {59.4, "59 sec"},    {59.6, "1 min 0 sec"},
        {125, "2 min 5 sec"}, {3599.7, "1 h 0 min"}, {3720, "1 h 2 min"}, {360000, "100 h 0 min"},
        {-1, "--"},           {infinite, "--"},      {-infinite, "--"},   {std::nan(""), "--"},
        {1e300, "--"},
    };
    for (const auto &[seconds, text] : rows)
        EXPECT_EQ(KVTime::localizedTimeString(seconds), text) << seconds;
}

TEST_F(KVTimeTest, LogsOneLineWithItsPlaceAndOnlyWhileASinkIsSet) {
    QStringList lines;
    KVLog("before");
    KVSetLogSink([&](const QString &line) { lines.append(line); });
    KVLog("während");
    KVSetLogSink({});
    KVLog("after");
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.first().startsWith("KVTimeTests.cpp:")) << lines.first().toStdString();
    EXPECT_TRUE(lines.first().endsWith(": während"));
    EXPECT_TRUE(lines.first().contains("TestBody"));
}
