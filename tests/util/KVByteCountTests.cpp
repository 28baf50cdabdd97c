#include "util/KVByteCount.h"

#include "support/KVTestCase.h"

#include <limits>
#include <vector>

TEST(KVByteCountTest, ShowsASizeAsPeopleReadIt) {
    const std::vector<std::pair<qint64, const char *>> rows{{0, "Zero KB"},
                                                            {1, "1 byte"},
                                                            {999, "999 bytes"},
                                                            {1000, "1 KB"},
                                                            {1500, "2 KB"},
                                                            {999'499, "999 KB"},
                                                            {999'500, "1 MB"},
                                                            {1'250'000, "1.3 MB"},
                                                            {99'960'000, "100 MB"},
                                                            {1'234'567'890, "1.23 GB"},
                                                            {1'500'000'000'000, "1.5 TB"},
                                                            {std::numeric_limits<qint64>::max(), "9.22 EB"}};
    for (const auto &[bytes, text] : rows)
        EXPECT_EQ(KVByteCountText(bytes), text);
}
