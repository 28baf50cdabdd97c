#include "main_ui/KVAppearance.h"
#include "main_ui/KVWindowTestCase.h"
#include "main_ui/main_window/KVLook.h"
#include "main_ui/main_window/details/KVFailureDetailsPanel.h"
#include "main_ui/main_window/subtitles/KVSubtitleEncodingChooser.h"
#include "main_ui/options/KVPresetSettingsWindow.h"
#include "presets/KVPresetRegistry.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QTranslator>

#include <cmath>

namespace {

double luminance(const QColor &color) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The ratio by which the guidelines for accessible pages measure.
double contrast(const QColor &ink, const QColor &paper) {
    const float alpha = ink.alphaF();
    const QColor seen = QColor::fromRgbF(ink.redF() * alpha + paper.redF() * (1 - alpha),
                                         ink.greenF() * alpha + paper.greenF() * (1 - alpha),
                                         ink.blueF() * alpha + paper.blueF() * (1 - alpha));
    const double a = luminance(seen);
    const double b = luminance(paper);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace

class KVLookTest : public KVWindowTestCase {
  protected:
    void TearDown() override {
        QApplication::setPalette(light);
        QApplication::setFont(font);
        KVWindowTestCase::TearDown();
    }

    /// Fails for every text of the window that has not got the room that it needs.
    static void expectNoTextIsCutOff(QWidget &window) {
        window.show();
        QApplication::processEvents();
        for (QWidget *widget : window.findChildren<QWidget *>()) {
            const bool hasText = qobject_cast<QLabel *>(widget) || qobject_cast<QAbstractButton *>(widget) ||
                                 qobject_cast<QComboBox *>(widget);
            if (!hasText || !widget->isVisible()) continue;
            const QSize needed = widget->minimumSizeHint();
            EXPECT_GE(widget->width(), needed.width()) << widget->property("text").toString().toStdString();
            const int height =
                widget->hasHeightForWidth() ? widget->heightForWidth(widget->width()) : needed.height();
            EXPECT_GE(widget->height(), height) << widget->property("text").toString().toStdString();
        }
    }

    const QPalette light = QApplication::palette();
    const QFont font = QApplication::font();
};

TEST_F(KVLookTest, EveryColourOfTextIsReadableInLightAndDark) {
    for (const bool isDark : {false, true}) {
        KVAppearance::setIsDark(isDark);
        const QPalette palette = QApplication::palette();
        EXPECT_EQ(KVLook::isDark(palette), isDark);
        const QColor base = palette.color(QPalette::Base);
        for (const QColor &ink :
             {palette.color(QPalette::Text), KVLook::secondaryText(palette), KVLook::success(palette),
              KVLook::warning(palette), KVLook::failure(palette)})
            EXPECT_GE(contrast(ink, base), 4.5)
                << ink.name(QColor::HexArgb).toStdString() << " on " << isDark;
        EXPECT_GE(contrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)), 4.5);
        EXPECT_GE(contrast(KVLook::secondaryText(palette), palette.color(QPalette::Window)), 4.5);
    }
}

TEST_F(KVLookTest, NoTextIsCutOffInGermanAtLargerFonts) {
    QTranslator german;
    ASSERT_TRUE(german.load(KV_BUILD_DIRECTORY "/share/kalvora/resources/translations/kalvora_de.qm"));
    QApplication::installTranslator(&german);
    QFont larger = font;
    larger.setPointSizeF(font.pointSizeF() * 1.25);
    QApplication::setFont(larger);
    const auto inGerman = KVKalvoraApplication::create();
    expectNoTextIsCutOff(inGerman->window());
    write("a.srt", "text");
    KVSubtitleEncodingChooser chooser(url("a.srt"), "UTF-8");
    expectNoTextIsCutOff(chooser);
    for (const auto retry : {KVFailureRetry::withoutSubtitles, KVFailureRetry::inAnotherFolder}) {
        KVFailureDetailsPanel panel({.name = "a.wav",
                                     .hasFailed = true,
                                     .cause = QString("It failed. ").repeated(30),
                                     .remedy = QString("Do something. ").repeated(10),
                                     .command = "ffmpeg",
                                     .log = "log",
                                     .retry = retry},
                                    nullptr);
        panel.setAttribute(Qt::WA_DeleteOnClose, false);
        expectNoTextIsCutOff(panel);
    }
    for (const auto &preset : KVPresetRegistry::shared().allPresets()) {
        KVPresetSettingsWindow window(preset);
        expectNoTextIsCutOff(window);
    }
    // Two lines of text in a row, one in a group row.
    const QFontMetrics metrics(larger);
    const QFontMetrics small(KVLook::smaller(larger));
    EXPECT_LE(metrics.height() + 2 + small.height(), KVQueueTableViewController::conversionRowHeight);
    EXPECT_LE(small.height(), KVQueueTableViewController::groupRowHeight - 5);
}
