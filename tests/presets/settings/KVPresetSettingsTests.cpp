#include "presets/KVPresetTestCase.h"
#include "presets/audio/KVAppleLosslessPreset.h"
#include "presets/audio/KVAudioPresets.h"
#include "presets/audio/KVWAVPreset.h"
#include "presets/picture/KVJPEGPreset.h"
#include "presets/settings/KVAudioQualityBasedFormatSettings.h"
#include "support/KVTestPresets.h"

using namespace KVTestPresets;

using KVPresetSettingsTest = KVPresetTestCase;

TEST_F(KVPresetSettingsTest, RevealsTheNumbersWithCustomQuality) {
    const auto mp3 = KVPreset::make<KVMP3Preset>();
    const auto settings = mp3->settings();
    int changes = 0;
    settings->setVisibleOptionsObserver([&] { ++changes; });
    const auto quality = optionOf(*settings, "Audio Quality:");
    ASSERT_TRUE(quality);
    EXPECT_EQ(quality->allowedValueNames(),
              (QStringList{"Low", "Medium", "High", "Keep Quality", "Custom", "Copy Track"}));
    EXPECT_EQ(quality->value(), "Medium");
    EXPECT_EQ(labelsOf(*settings), (QStringList{"Audio Quality:"}));
    EXPECT_EQ(settings->defaultViewSize(), QSize(300, 27));

    EXPECT_TRUE(quality->setValue("Custom"));
    EXPECT_EQ(mp3->audioTrackQuality, KVTrackQualitySetting::custom);
    EXPECT_EQ(labelsOf(*settings), (QStringList{"Audio Quality:", "Channels:", "Sample Rate:", "Bitrate:"}));
    EXPECT_EQ(settings->defaultViewSize(), QSize(300, 4 * 27));
    const auto bitrate = optionOf(*settings, "Bitrate:");

    EXPECT_TRUE(quality->setValue("Copy Track"));
    EXPECT_EQ(labelsOf(*settings), (QStringList{"Audio Quality:"}));
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(quality->setValue("Low"));
    EXPECT_EQ(changes, 2) << "no row came or went";
    EXPECT_FALSE(quality->setValue("Best"));
    EXPECT_EQ(quality->value(), "Low");
    quality->setValue("Custom");
    EXPECT_EQ(optionOf(*settings, "Bitrate:"), bitrate) << "the same row comes back";
}

TEST_F(KVPresetSettingsTest, KeepsThePresetAndLetsAnOptionOutliveItsPane) {
    std::weak_ptr<KVPreset> preset;
    std::shared_ptr<KVOptionRoot> quality;
    {
        const auto settings = KVPreset::make<KVMP3Preset>()->settings();
        settings->setVisibleOptionsObserver([] { FAIL() << "the pane is gone"; });
        quality = optionOf(*settings, "Audio Quality:");
        const auto pane = std::dynamic_pointer_cast<KVSettings<KVBitrateAudioPreset>>(settings);
        ASSERT_TRUE(pane);
        preset = pane->preset;
    }
    quality->setValue("Custom");
    EXPECT_EQ(quality->value(), "Custom");
    quality.reset();
    EXPECT_TRUE(preset.expired());
}

TEST_F(KVPresetSettingsTest, ShowsTheOptionsOfTheLosslessPresets) {
    EXPECT_EQ(labelsOf(*KVPreset::make<KVFLACPreset>()->settings()), (QStringList{"Channels:"}));
    const auto wav = KVPreset::make<KVWAVPreset>();
    const auto settings = wav->settings();
    EXPECT_EQ(labelsOf(*settings), (QStringList{"Channels:", "Sample Rate:", "Frequency",
                                                "Uses unsigned integers", "Encoding", "Sample Bits"}));
    EXPECT_EQ(optionOf(*settings, "Sample Rate:")->value(), "Default");
    optionOf(*settings, "Sample Rate:")->setValue("8000 Hz");
    EXPECT_EQ(wav->sampleRate, 8000);
    optionOf(*settings, "Sample Rate:")->setValue("Default");
    EXPECT_EQ(wav->sampleRate, std::nullopt);
    EXPECT_EQ(optionOf(*settings, "Frequency")->allowedValueNames().size(), 15);
    optionOf(*settings, "Frequency")->setValue("176400 Hz");
    EXPECT_EQ(wav->frequency, 176400);
    optionOf(*settings, "Encoding")->setValue("Big Endian");
    EXPECT_TRUE(wav->usesBigEndian);
    optionOf(*settings, "Uses unsigned integers")->setValue(true);
    EXPECT_TRUE(wav->usesUnsignedIntegers);
    EXPECT_EQ(optionOf(*settings, "Sample Bits")->allowedValueNames(),
              (QStringList{"16-bit", "24-bit", "32-bit"}));
    optionOf(*settings, "Sample Bits")->setValue("32-bit");
    EXPECT_EQ(wav->sampleBits, 32);

    const auto lossless = KVPreset::make<KVAppleLosslessPreset>()->settings();
    EXPECT_EQ(optionOf(*lossless, "Frequency")->allowedValueNames().last(), "384000 Hz");
    EXPECT_EQ(optionOf(*lossless, "Sample Bits")->allowedValueNames(), (QStringList{"16-bit", "32-bit"}));
}

TEST_F(KVPresetSettingsTest, LeavesAValueThatIsNotOnOffer) {
    const auto wav = KVPreset::make<KVWAVPreset>();
    wav->sampleBits = 12;
    const auto settings = wav->settings();
    EXPECT_FALSE(optionOf(*settings, "Sample Bits")->value().isValid());
    EXPECT_FALSE(optionOf(*settings, "Sample Bits")->setValue("12-bit"));
    EXPECT_EQ(wav->sampleBits, 12);
}

TEST_F(KVPresetSettingsTest, ClampsANumber) {
    const auto mp3 = KVPreset::make<KVMP3Preset>();
    mp3->audioTrackQuality = KVTrackQualitySetting::custom;
    mp3->audioBitrate = 7;
    const auto bitrate = optionOf(*mp3->settings(), "Bitrate:");
    EXPECT_EQ(bitrate->value(), 7) << "what the preset holds is shown as it is";
    EXPECT_EQ(bitrate->minValue(), 32);
    EXPECT_EQ(bitrate->maxValue(), 1024);
    for (const auto &[entered, wanted] : std::vector<std::pair<QVariant, qint64>>{
             {100, 100}, {31, 32}, {5000, 1024}, {"128", 128}, {"96 kb/s", 96}, {"", 32}, {"x", 32}}) {
        bitrate->setValue(entered);
        EXPECT_EQ(mp3->audioBitrate, wanted) << entered.toString().toStdString();
    }
}

TEST_F(KVPresetSettingsTest, ShowsSizesWhileTheyAreOn) {
    const auto jpeg = KVPreset::make<KVJPEGPreset>();
    jpeg->setMaxWidth(640);
    const auto settings = jpeg->settings();
    EXPECT_EQ(settings->defaultViewSize(), QSize(300, 22 + 22 + 44));
    const auto size = optionOf(*settings, "Constrain size");
    const auto scale = optionOf(*settings, "Scale by percentage");
    EXPECT_TRUE(size->details().empty());
    EXPECT_TRUE(scale->details().empty());

    size->setValue(true);
    EXPECT_TRUE(jpeg->hasSizeConstrains());
    const auto details = size->details();
    ASSERT_EQ(details.size(), 3U);
    EXPECT_EQ(details[0]->value(), 640) << "kept while it was off";
    details[1]->setValue("480");
    details[2]->setValue(true);
    EXPECT_EQ(jpeg->maxHeight(), 480);
    EXPECT_TRUE(jpeg->allowsScalingUp());
    EXPECT_EQ(details[2]->name, "Allows scaling up");
    details[0]->setValue("");
    EXPECT_EQ(jpeg->maxWidth(), 0) << "an emptied field is 0";

    scale->setValue(true);
    ASSERT_EQ(scale->details().size(), 1U);
    scale->details()[0]->setValue("50");
    EXPECT_EQ(jpeg->scalingPercentage(), 50);
}
