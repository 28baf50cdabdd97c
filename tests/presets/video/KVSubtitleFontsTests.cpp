#include "presets/video/base/KVSubtitleFonts.h"

#include "platform/KVResources.h"
#include "support/KVTestCase.h"
#include "support/KVTestPresets.h"
#include "support/KVTestProbe.h"
#include "support/KVTestSources.h"
#include "tasks/KVFFmpegTask.h"

#include <QStandardPaths>

namespace {

class KVSubtitleFontsTest : public KVTestCase {
  protected:
    void SetUp() override {
        if (QStandardPaths::findExecutable("fc-list").isEmpty()) GTEST_SKIP() << "no fc-list";
        if (!QFile::exists(font("DejaVuSans.ttf"))) GTEST_SKIP() << "no fonts-dejavu-core";
    }
    void TearDown() override { KVResources::setDirectory(_resources); }

    static QString font(const QString &name) { return "/usr/share/fonts/truetype/dejavu/" + name; }

    /// Our configuration with an ordinary font and one for formulas only, and none of the system's.
    void useFewFonts() const {
        QDir(path()).mkpath("fonts");
        for (const QString name : {"DejaVuSans.ttf", "DejaVuMathTeXGyre.ttf"})
            QFile::copy(font(name), path("fonts/" + name));
        QByteArray configuration = read(_resources + "/fonts.conf");
        configuration.replace("/usr/share/fonts", path("fonts").toUtf8());
        configuration.replace("/usr/local/share/fonts", path("none").toUtf8());
        configuration.replace("/etc/fonts/fonts.conf", path("none.conf").toUtf8());
        write("resources/fonts.conf", configuration);
        QFile::link(_resources + "/ffmpeg", path("resources/ffmpeg"));
        KVResources::setDirectory(path("resources"));
    }

    /// The family that the children of this program draw `pattern` with.
    QString familyFor(const QString &pattern) const {
        const auto fonts = KVFFmpegTask::preparedFontsDirectory();
        return KVTestProbe::outputOf("env", {"-i", "FONTCONFIG_PATH=" + *fonts,
                                             QStandardPaths::findExecutable("fc-match"), "-f", "%{family}",
                                             pattern});
    }

  private:
    const QString _resources = KVResources::directory();
};

TEST_F(KVSubtitleFontsTest, AnOrdinaryFontIsUsedAmongFewAndAmongAll) {
    for (const bool isSmallSet : {false, true}) {
        if (isSmallSet) useFewFonts();
        for (const QString pattern : {"Arial", "A Family That Nobody Has", "sans-serif", "Arial:lang=ru"}) {
            const QString family = familyFor(pattern);
            EXPECT_TRUE(family.contains("Sans") || family.contains("Arimo") || family.contains("Arial"))
                << family.toStdString();
            EXPECT_FALSE(family.contains("Math") || family.contains("Mono")) << family.toStdString();
        }
    }
}

TEST_F(KVSubtitleFontsTest, NamesTheWritingSystemsThatNoFontCovers) {
    useFewFonts();
    using KVSubtitleFonts::missingWritingSystems;
    EXPECT_EQ(missingWritingSystems(QString::fromUtf8("Grüße, привет, γεια")), QStringList());
    EXPECT_EQ(missingWritingSystems(QString::fromUtf8("สวัสดี 你好 안녕 привет")),
              QStringList({"Thai", "Chinese characters", "Korean"}));
    EXPECT_EQ(missingWritingSystems(QString::fromUtf8("ありがとう アリガトウ")), QStringList{"Japanese"});
}

TEST_F(KVSubtitleFontsTest, PresetsWarnWhereTheyBurnSuchSubtitlesIn) {
    useFewFonts();
    const auto source = KVTestSources::video();
    source->subtitlesFileURL = QUrl::fromLocalFile(
        write("a.srt", "1\n00:00:00,000 --> 00:00:01,000\n" + QString::fromUtf8("สวัสดี").toUtf8() + "\n"));
    const QString warning =
        "The subtitles cannot be read in the picture, because no font for these letters is installed: Thai.";
    const auto warnings = [&](const char *presetClass, const QVariantMap &settings) {
        return KVTestPresets::make(presetClass, settings)->warningsForFiles({source});
    };
    EXPECT_EQ(warnings("KVMP4Preset", {{"KVBurnSubtitles", true}}), QStringList{warning});
    EXPECT_EQ(warnings("KVWMVPreset", {}), QStringList{warning});
    EXPECT_EQ(warnings("KVMP4Preset", {}), QStringList()) << "the text is carried";
    EXPECT_EQ(warnings("KVRemuxPreset", {}), QStringList()) << "there are no subtitles";
}

} // namespace
