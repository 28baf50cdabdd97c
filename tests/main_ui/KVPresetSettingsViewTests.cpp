#include "main_ui/options/KVPresetSettingsView.h"
#include "presets/KVPresetRegistry.h"
#include "presets/settings/KVMultipleValueOption.h"
#include "presets/settings/KVNumericOption.h"
#include "presets/settings/KVSettingsWithOptions.h"
#include "presets/settings/KVSizeOption.h"
#include "support/KVTestCase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QTest>

namespace {

struct Preset : KVSizeRestrictedPreset {
    qint64 quality = 40;
    QString codec = "unknown";
    bool isConstrained = false;
    qint64 width = 640;
    qint64 height = 480;
    bool isScaledUp = false;

    bool hasSizeConstrains() const override { return isConstrained; }
    void setHasSizeConstrains(bool value) override { isConstrained = value; }
    qint64 maxWidth() const override { return width; }
    void setMaxWidth(qint64 value) override { width = value; }
    qint64 maxHeight() const override { return height; }
    void setMaxHeight(qint64 value) override { height = value; }
    bool allowsScalingUp() const override { return isScaledUp; }
    void setAllowsScalingUp(bool value) override { isScaledUp = value; }
};

} // namespace

class KVPresetSettingsViewTest : public KVTestCase {
  protected:
    void show(const std::shared_ptr<KVOptionBase<Preset>> &option) {
        view.setSettings(std::make_shared<KVSettingsWithOptions<Preset>>(
            preset, KVSettingsWithOptions<Preset>::Options{option}));
        view.show();
    }
    template <class Control>
    QList<Control *> all() {
        QList<Control *> shown = view.findChildren<Control *>();
        shown.removeIf([this](const Control *control) { return !control->isVisibleTo(&view); });
        return shown;
    }

    std::shared_ptr<Preset> preset = std::make_shared<Preset>();
    KVPresetSettingsView view;
};

TEST_F(KVPresetSettingsViewTest, SliderAndFieldFollowEachOtherAndStayWithinTheLimits) {
    show(std::make_shared<KVNumericOption<Preset>>("Quality:", preset, 10, 90, &Preset::quality));
    auto *slider = all<QSlider>().first();
    auto *field = all<QLineEdit>().first();
    EXPECT_EQ(slider->value(), 40);
    slider->setValue(55);
    EXPECT_EQ(field->text(), "55");
    EXPECT_EQ(preset->quality, 55);
    field->selectAll();
    QTest::keyClicks(field, "7");
    EXPECT_EQ(preset->quality, 10) << "on the way to a number the limit counts";
    QTest::keyClicks(field, "2");
    EXPECT_EQ(preset->quality, 72);
    EXPECT_EQ(slider->value(), 72);
    EXPECT_EQ(field->text(), "72");
}

TEST_F(KVPresetSettingsViewTest, AValueThatIsNotOnOfferStaysUntilAnotherIsChosen) {
    show(std::make_shared<KVMultipleValueOption<Preset, QString>>(
        "Codec:", preset, &Preset::codec,
        std::vector<KVValueOption<QString>>{{"First", "first"}, {"Second", "second"}}));
    auto *popUp = all<QComboBox>().first();
    EXPECT_EQ(popUp->currentText(), "First");
    EXPECT_EQ(preset->codec, "unknown");
    popUp->setFocus();
    QTest::keyClick(popUp, Qt::Key_Down);
    EXPECT_EQ(preset->codec, "second");
}

TEST_F(KVPresetSettingsViewTest, TheSizeIsShownWhileItIsRestrictedAndKeptMeanwhile) {
    show(std::make_shared<KVSizeOption<Preset>>("Limit the size", preset));
    auto *box = all<QCheckBox>().first();
    EXPECT_TRUE(all<QLineEdit>().isEmpty());
    box->click();
    ASSERT_EQ(all<QLineEdit>().size(), 2);
    EXPECT_EQ(all<QLineEdit>().first()->text(), "640");
    all<QLineEdit>().first()->clear();
    EXPECT_EQ(preset->width, 0);
    QTest::keyClicks(all<QLineEdit>().first(), "320");
    EXPECT_EQ(preset->width, 320);
    all<QCheckBox>().last()->click();
    EXPECT_TRUE(preset->isScaledUp);
    box->click();
    EXPECT_TRUE(all<QLineEdit>().isEmpty());
    box->click();
    EXPECT_EQ(all<QLineEdit>().first()->text(), "320");
}

TEST_F(KVPresetSettingsViewTest, EveryPresetHasAPane) {
    int panes = 0;
    for (const auto &each : KVPresetRegistry::shared().allPresets()) {
        view.setSettings(each->settings());
        panes += int(all<QLineEdit>().size() + all<QComboBox>().size() + all<QCheckBox>().size() > 0);
        EXPECT_FALSE(view.grab().isNull());
    }
    EXPECT_GT(panes, 20);
    view.setSettings(nullptr);
    EXPECT_EQ(all<QLabel>().first()->text(), "This preset has no settings.");
}
