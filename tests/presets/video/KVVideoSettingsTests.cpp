#include "presets/settings/KVSettingsBase.h"
#include "presets/video/base/KVVideoPreset.h"
#include "presets/video/other/KVTransformPreset.h"
#include "support/KVTestCase.h"
#include "support/KVTestPresets.h"
#include "tasks/KVHardwareAcceleration.h"

using namespace KVTestPresets;

namespace {

class KVVideoSettingsTest : public KVTestCase {
  protected:
    void SetUp() override { KVHardwareAcceleration::setResult(false); }
};

const QVariantMap customQualities{{"KVVideoTrackQuality", 3}, {"KVAudioTrackQuality", 3}};
const QString always = "Copy Subtitles from Source|Deinterlace|Burn Subtitles Into Video Track";
const QString qualities = "Video Quality:|Audio Quality:|" + always;
const QString custom =
    "Video Quality:|Bitrate:|Max Bitrate:|Frame rate:|Audio Quality:|Channels:|Sample Rate:|Bitrate:|";
const QString stereo = "Include stereo track aside surround track when possible|";

} // namespace

TEST_F(KVVideoSettingsTest, ShowsTheOptionsOfEachPresetInOrder) {
    struct Row {
        const char *presetClass;
        QVariantMap settings;
        QString want;
    };
    const Row rows[]{
        {"KVMP4Preset", {}, qualities + "|Constrain size"},
        {"KVMP4Preset", customQualities, custom + stereo + always + "|Constrain size"},
        {"KVWebMPreset", customQualities, custom + stereo + always + "|Constrain size"},
        {"KVDivXPreset", customQualities, custom + always + "|Constrain size"},
        {"KVMPEG2Preset", customQualities, custom + stereo + always + "|Constrain size"},
        {"KViPhone5SPreset", {}, qualities},
        {"KVPSPPreset", customQualities, custom + stereo + always},
        {"KVHEVCPreset", {}, qualities + "|Constrain size|Container Format"},
        {"KVProResPreset", {}, qualities + "|Constrain size|Profile"},
        {"KVRemuxPreset", {}, "File Format:"},
        {"KVVideoRemuxPreset", {}, "File Format:|Audio Format:|Audio Quality:"},
        {"KVCropPreset", {}, "X Offset:|Y Offset:|Width:|Height:"},
        {"KVTransformPreset", {}, "Transform type:"},
        {"KVGIFAnimationPreset", {}, "Constrain size"},
        {"KVVolumeAdjustingPreset", {}, "Add (0.1 dB):"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(labelsOf(*make(row.presetClass, row.settings)->settings()), row.want.split('|'))
            << row.presetClass;
    EXPECT_EQ(make("KVWebOptimization")->settings(), nullptr);
    EXPECT_EQ(make("KViPhoneRingtonePreset")->settings(), nullptr);

    KVHardwareAcceleration::setResult(true);
    EXPECT_EQ(labelsOf(*make("KVMP4Preset")->settings()).last(), "Use Hardware Acceleration");
    EXPECT_EQ(labelsOf(*make("KViPodPreset")->settings()).last(), "Use Hardware Acceleration");
    EXPECT_EQ(labelsOf(*make("KVMP4MPEG4BasedPreset")->settings()).last(), "Constrain size");
}

TEST_F(KVVideoSettingsTest, ChoicesWriteIntoThePreset) {
    struct Row {
        const char *presetClass, *label;
        QString choices, chosen;
        const char *key;
        QVariant stored;
    };
    const Row rows[]{
        {"KVMP4Preset", "Frame rate:", "Same as source|PAL|NTSC|24 fps|30 fps", "NTSC", "ZRFramerate", 29.97},
        {"KVHEVCPreset", "Container Format", "MOV|MKV|MP4", "MKV", "ContainerFormat", 1},
        {"KVProResPreset", "Profile", "Default|Proxy|LT|Standard|HQ", "HQ", "KVProfile", 3},
        {"KVRemuxPreset", "File Format:", "AVI|FLV|M4V|MKV|MOV|MP4|MP4 (iPod, iPhone & AppleTV)",
         "MP4 (iPod, iPhone & AppleTV)", "ZRRemuxFormat", "ipod"},
        {"KVVideoRemuxPreset", "Audio Format:", "mp3|aac", "aac", "ZRRemuxAudioFormat", "aac"},
        {"KVTransformPreset", "Transform type:", "Rotate 90º|Rotate 90º CCW|Horizontal Flip|Vertical Flip",
         "Vertical Flip", "ZRTransformType", 3},
    };
    for (const Row &row : rows) {
        const auto preset = make(row.presetClass, customQualities);
        const auto choice = optionOf(*preset->settings(), row.label);
        ASSERT_TRUE(choice);
        EXPECT_EQ(choice->allowedValueNames(), row.choices.split('|'));
        EXPECT_EQ(choice->value(), row.choices.section('|', 0, 0)) << row.label;
        EXPECT_TRUE(choice->setValue(row.chosen));
        EXPECT_EQ(preset->dictionaryRepresentation().value(row.key), row.stored) << row.label;
    }
}
