#include "presets/KVPercentScalablePreset.h"
#include "presets/KVPresetTestCase.h"
#include "presets/KVSizeRestrictedPreset.h"
#include "presets/audio/KVAppleLosslessPreset.h"
#include "presets/audio/KVFLACPreset.h"
#include "presets/audio/KVMP3Preset.h"
#include "presets/audio/KVWAVPreset.h"
#include "presets/settings/KVAudioQualityBasedFormatSettings.h"
#include "presets/settings/KVPercentageScalingOption.h"
#include "presets/settings/KVSettingsWithOptions.h"
#include "presets/settings/KVSizeOption.h"

namespace {

/// A preset with everything that the size and percentage options edit.
class ScalablePreset : public KVFLACPreset, public KVSizeRestrictedPreset, public KVPercentScalablePreset {
  public:
    bool isRestricted = false;
    bool isScaled = false;
    bool scalesUp = false;
    qint64 width = 0;
    qint64 height = 0;
    qint64 percentage = 0;

    bool hasSizeConstrains() const override { return isRestricted; }
    void setHasSizeConstrains(bool value) override { isRestricted = value; }
    qint64 maxWidth() const override { return width; }
    void setMaxWidth(qint64 value) override { width = value; }
    qint64 maxHeight() const override { return height; }
    void setMaxHeight(qint64 value) override { height = value; }
    bool allowsScalingUp() const override { return scalesUp; }
    void setAllowsScalingUp(bool value) override { scalesUp = value; }
    qint64 scalingPercentage() const override { return percentage; }
    void setScalingPercentage(qint64 value) override { percentage = value; }
};

} // namespace

class KVPresetSettingsTest : public KVPresetTestCase {
  protected:
    static QStringList names(const KVOptionList &options) {
        QStringList names;
        for (const auto &option : options)
            names.append(option->name);
        return names;
    }

    static std::shared_ptr<KVOptionRoot> option(const KVSettingsBase &settings, const QString &name) {
        for (const auto &option : settings.visibleOptions())
            if (option->name == name) return option;
        return nullptr;
    }
};

TEST_F(KVPresetSettingsTest, RevealsTheNumbersWithCustomQuality) {
    const auto mp3 = KVPreset::make<KVMP3Preset>();
    const auto settings = mp3->settings();
    int changes = 0;
    settings->setVisibleOptionsObserver([&] { ++changes; });
    const auto quality = option(*settings, "Audio Quality:");
    ASSERT_TRUE(quality);
    EXPECT_EQ(quality->allowedValueNames(),
              (QStringList{"Low", "Medium", "High", "Keep Quality", "Custom", "Copy Track"}));
    EXPECT_EQ(quality->value(), "Medium");
    EXPECT_EQ(names(settings->visibleOptions()), (QStringList{"Audio Quality:"}));
    EXPECT_EQ(settings->defaultViewSize(), QSize(300, 27));

    EXPECT_TRUE(quality->setValue("Custom"));
    EXPECT_EQ(mp3->audioTrackQuality, KVTrackQualitySetting::custom);
    EXPECT_EQ(names(settings->visibleOptions()),
              (QStringList{"Audio Quality:", "Channels:", "Sample Rate:", "Bitrate:"}));
    EXPECT_EQ(settings->defaultViewSize(), QSize(300, 4 * 27));
    const auto bitrate = option(*settings, "Bitrate:");

    EXPECT_TRUE(quality->setValue("Copy Track"));
    EXPECT_EQ(names(settings->visibleOptions()), (QStringList{"Audio Quality:"}));
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(quality->setValue("Low"));
    EXPECT_EQ(changes, 2) << "no row came or went";
    EXPECT_FALSE(quality->setValue("Best"));
    EXPECT_EQ(quality->value(), "Low");
    quality->setValue("Custom");
    EXPECT_EQ(option(*settings, "Bitrate:"), bitrate) << "the same row comes back";
}

TEST_F(KVPresetSettingsTest, KeepsThePresetAndLetsAnOptionOutliveItsPane) {
    std::weak_ptr<KVPreset> preset;
    std::shared_ptr<KVOptionRoot> quality;
    {
        const auto settings = KVPreset::make<KVMP3Preset>()->settings();
        settings->setVisibleOptionsObserver([] { FAIL() << "the pane is gone"; });
        quality = option(*settings, "Audio Quality:");
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
    EXPECT_EQ(names(KVPreset::make<KVFLACPreset>()->settings()->visibleOptions()),
              (QStringList{"Channels:"}));
    const auto wav = KVPreset::make<KVWAVPreset>();
    const auto settings = wav->settings();
    EXPECT_EQ(names(settings->visibleOptions()),
              (QStringList{"Channels:", "Sample Rate:", "Frequency", "Uses unsigned integers", "Encoding",
                           "Sample Bits"}));
    EXPECT_EQ(option(*settings, "Sample Rate:")->value(), "Default");
    option(*settings, "Sample Rate:")->setValue("8000 Hz");
    EXPECT_EQ(wav->sampleRate, 8000);
    option(*settings, "Sample Rate:")->setValue("Default");
    EXPECT_EQ(wav->sampleRate, std::nullopt);
    EXPECT_EQ(option(*settings, "Frequency")->allowedValueNames().size(), 15);
    option(*settings, "Frequency")->setValue("176400 Hz");
    EXPECT_EQ(wav->frequency, 176400);
    option(*settings, "Encoding")->setValue("Big Endian");
    EXPECT_TRUE(wav->usesBigEndian);
    option(*settings, "Uses unsigned integers")->setValue(true);
    EXPECT_TRUE(wav->usesUnsignedIntegers);
    EXPECT_EQ(option(*settings, "Sample Bits")->allowedValueNames(),
              (QStringList{"16-bit", "24-bit", "32-bit"}));
    option(*settings, "Sample Bits")->setValue("32-bit");
    EXPECT_EQ(wav->sampleBits, 32);

    const auto lossless = KVPreset::make<KVAppleLosslessPreset>()->settings();
    EXPECT_EQ(option(*lossless, "Frequency")->allowedValueNames().last(), "384000 Hz");
    EXPECT_EQ(option(*lossless, "Sample Bits")->allowedValueNames(), (QStringList{"16-bit", "32-bit"}));
}

TEST_F(KVPresetSettingsTest, OffersAStereoTrackBesideASurroundTrackOfAVideo) {
    struct Row {
        const char *preset;
        bool isOffered;
    };
    const QString stereo = "Include stereo track aside surround track when possible";
    for (const auto &[name, isOffered] : {Row{"MKV", true}, Row{"DVD", true}, Row{"WebM", true},
                                          Row{"WMV", false}, Row{"MPEG-1", false}, Row{"AAC", false}}) {
        const auto preset = std::static_pointer_cast<KVBitrateAudioPreset>(KVPreset::presetNamed(name));
        const auto format = preset->audioFormat();
        const QStringList options = names(format->options(preset));
        EXPECT_EQ(options.indexOf(stereo), isOffered ? options.size() - 1 : -1) << name;
    }
}

TEST_F(KVPresetSettingsTest, LeavesAValueThatIsNotOnOffer) {
    const auto wav = KVPreset::make<KVWAVPreset>();
    wav->sampleBits = 12;
    const auto settings = wav->settings();
    EXPECT_FALSE(option(*settings, "Sample Bits")->value().isValid());
    EXPECT_FALSE(option(*settings, "Sample Bits")->setValue("12-bit"));
    EXPECT_EQ(wav->sampleBits, 12);
}

TEST_F(KVPresetSettingsTest, ClampsANumber) {
    const auto mp3 = KVPreset::make<KVMP3Preset>();
    mp3->audioTrackQuality = KVTrackQualitySetting::custom;
    mp3->audioBitrate = 7;
    const auto bitrate = option(*mp3->settings(), "Bitrate:");
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
    const auto preset = KVPreset::make<ScalablePreset>();
    preset->width = 640;
    const auto size = std::make_shared<KVSizeOption<ScalablePreset>>("Constrain size", preset);
    const auto scale = std::make_shared<KVPercentageScalingOption<ScalablePreset>>(
        "Scale by percentage", preset, &ScalablePreset::isScaled);
    const KVSettingsWithOptions<ScalablePreset> settings(preset, {scale, size});
    EXPECT_EQ(settings.defaultViewSize(), QSize(300, 66));
    EXPECT_TRUE(size->details().empty());
    EXPECT_TRUE(scale->details().empty());

    size->setValue(true);
    EXPECT_TRUE(preset->isRestricted);
    const auto details = size->details();
    ASSERT_EQ(details.size(), 3U);
    EXPECT_EQ(details[0]->value(), 640) << "kept while it was off";
    details[1]->setValue("480");
    details[2]->setValue(true);
    EXPECT_EQ(preset->height, 480);
    EXPECT_TRUE(preset->scalesUp);
    EXPECT_EQ(details[2]->name, "Allows scaling up");
    details[0]->setValue("");
    EXPECT_EQ(preset->width, 0) << "an emptied field is 0";

    scale->setValue(true);
    ASSERT_EQ(scale->details().size(), 1U);
    scale->details()[0]->setValue("50");
    EXPECT_EQ(preset->percentage, 50);
}
