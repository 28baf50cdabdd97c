#include "util/KVSizeFitting.h"

#include <gtest/gtest.h>

TEST(KVSizeFittingTest, FitsTheShapeIntoTheMaximumAndRoundsUp) {
    struct Row {
        const char *what;
        KVSize size, maximum;
        bool scalesUp;
        KVSize want;
    };
    const Row rows[] = {
        {"smaller stays", {640, 480}, {1280, 720}, false, {640, 480}},
        {"smaller grows when asked", {640, 480}, {1280, 720}, true, {960, 720}},
        {"one side at the limit", {640, 720}, {1280, 720}, false, {640, 720}},
        {"wider than the maximum", {2000, 1500}, {1000, 1000}, false, {1000, 750}},
        {"taller than the maximum", {1500, 2000}, {1000, 1000}, false, {750, 1000}},
        {"a fraction of a pixel counts as one", {60000, 1}, {1000, 1000}, false, {1000, 1}},
        {"a fraction rounds up", {1000, 333}, {500, 500}, false, {500, 167}},
        {"noise of the division is no pixel", {3600, 2700}, {700, 700}, false, {700, 525}},
        {"the same shape", {1920, 1080}, {1280, 720}, false, {1280, 720}},
    };
    for (const Row &row : rows) {
        const KVSize got = KVSizeFitting::fitInto(row.size, row.maximum, row.scalesUp);
        EXPECT_EQ(got, row.want) << row.what << ": " << got.width << " x " << got.height;
    }
}
