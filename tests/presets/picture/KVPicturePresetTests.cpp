#include "presets/picture/KVPicturePreset.h"

#include "presets/KVPresetClasses.h"
#include "presets/picture/KVJPEGPreset.h"
#include "presets/picture/KVPNGPreset.h"
#include "presets/settings/KVSettingsBase.h"
#include "support/KVTestCase.h"
#include "support/KVTestPresets.h"

#include <algorithm>

namespace {

class KVPicturePresetTest : public KVTestCase {};

} // namespace

TEST_F(KVPicturePresetTest, ScalesByThePercentageAndThenFitsIntoTheLimits) {
    struct Row {
        const char *what;
        qint64 percentage; // 0: switched off
        KVSize maximum;
        bool scalesUp;
        KVSize size, want;
    };
    const KVSize none{0, 0};
    const Row rows[] = {
        {"nothing set", 0, none, false, {4000, 3000}, {4000, 3000}},
        {"half", 50, none, false, {4000, 3000}, {2000, 1500}},
        {"half, then limited", 50, {1000, 1000}, false, {4000, 3000}, {1000, 750}},
        {"half of an odd size", 50, none, false, {101, 1}, {51, 1}},
        {"the largest percentage", 1999, none, false, {100, 100}, {1999, 1999}},
        {"beyond the largest percentage", 2000, none, false, {100, 100}, {100, 100}},
        {"smaller than the limit", 0, {1000, 1000}, false, {800, 600}, {800, 600}},
        {"smaller than the limit, to be scaled up", 0, {1000, 1000}, true, {800, 600}, {1000, 750}},
        {"exactly at the limit", 0, {800, 600}, false, {800, 600}, {800, 600}},
        {"one side at the limit", 0, {800, 1000}, false, {800, 600}, {800, 600}},
        {"a limit without a height", 0, {1000, 0}, true, {800, 600}, {800, 600}},
        {"not rounded to even sides", 0, {333, 333}, false, {999, 333}, {333, 111}},
    };
    for (const Row &row : rows) {
        KVJPEGPreset preset;
        preset.hasPercentageScaling = row.percentage > 0;
        preset.setScalingPercentage(row.percentage);
        preset.setHasSizeConstrains(row.maximum.width > 0);
        preset.setMaxWidth(qint64(row.maximum.width));
        preset.setMaxHeight(qint64(row.maximum.height));
        preset.setAllowsScalingUp(row.scalesUp);
        const KVSize got = preset.scaledSize(row.size);
        EXPECT_EQ(got, row.want) << row.what << ": " << got.width << " x " << got.height;
    }
}

TEST_F(KVPicturePresetTest, ListsItsOwnOptionBeforeThoseOfTheSize) {
    const QStringList ofAll{"Scale by percentage", "Constrain size"};
    for (const KVPresetClass &row : KVPresetClasses::picturePresetClasses()) {
        if (row.isAbstractPreset()) continue;
        const auto preset = row.make();
        const QStringList own = preset->name == "JPEG"  ? QStringList{"Compression (%):"}
                                : preset->name == "PNG" ? QStringList{"Interlaced"}
                                                        : QStringList{};
        EXPECT_EQ(KVTestPresets::labelsOf(*preset->settings()), own + ofAll) << preset->name.toStdString();
    }
    const auto jpeg = KVPreset::make<KVJPEGPreset>();
    const auto compression = jpeg->settings()->visibleOptions().front();
    compression->setValue(1000);
    EXPECT_EQ(jpeg->compression, 100);
    compression->setValue(0);
    EXPECT_EQ(jpeg->compression, 1);
}
