#include "main_ui/main_window/subtitles/KVSubtitleEncodingChooser.h"
#include "support/KVTestCase.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

class KVSubtitleEncodingChooserTest : public KVTestCase {
  protected:
    // "Добро пожаловать на борт." in windows-1251
    const QByteArray russian =
        "1\n00:00:01,000 --> 00:00:04,000\n"
        "\xc4\xee\xe1\xf0\xee \xef\xee\xe6\xe0\xeb\xee\xe2\xe0\xf2\xfc \xed\xe0 \xe1\xee\xf0\xf2.\n";

    QComboBox &popUp(KVSubtitleEncodingChooser &chooser) { return *chooser.findChild<QComboBox *>(); }
    QString preview(KVSubtitleEncodingChooser &chooser) {
        return chooser.findChild<QPlainTextEdit *>()->toPlainText();
    }
    bool canAccept(KVSubtitleEncodingChooser &chooser) {
        return chooser.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled();
    }
    std::unique_ptr<KVSubtitleEncodingChooser> chooserFor(const QByteArray &text,
                                                          const QString &encoding = "UTF-8") {
        write("a.srt", text);
        return std::make_unique<KVSubtitleEncodingChooser>(url("a.srt"), encoding);
    }
};

TEST_F(KVSubtitleEncodingChooserTest, ThePreviewFollowsTheEncoding) {
    const auto chooser = chooserFor(russian, "windows-1252");
    EXPECT_EQ(popUp(*chooser).currentData().toString(), "windows-1252");
    EXPECT_FALSE(preview(*chooser).contains(QStringLiteral("\u0414\u043e\u0431\u0440\u043e")));
    popUp(*chooser).setCurrentIndex(popUp(*chooser).findData("windows-1251"));
    EXPECT_TRUE(preview(*chooser).contains(QStringLiteral("\u0414\u043e\u0431\u0440\u043e")));
    QTimer::singleShot(0, chooser.get(), &QDialog::accept);
    EXPECT_EQ(chooser->chooseEncoding(), "windows-1251");
}

TEST_F(KVSubtitleEncodingChooserTest, OffersOnlyWhatReadsTheFileAndStartsWithTheLikeliest) {
    const auto ascii = chooserFor("plain text");
    const int encodingsOfASCII = popUp(*ascii).count();
    EXPECT_EQ(popUp(*ascii).currentData().toString(), "UTF-8");

    const auto cyrillic = chooserFor(russian);
    EXPECT_EQ(popUp(*cyrillic).findData("UTF-8"), -1);
    EXPECT_LT(popUp(*cyrillic).count(), encodingsOfASCII);
    EXPECT_EQ(popUp(*cyrillic).currentData().toString(), "windows-1251");
    EXPECT_TRUE(popUp(*cyrillic).currentText().contains(QChar(0x2605)));
}

TEST_F(KVSubtitleEncodingChooserTest, DoesNotCutALongTextInsideACharacter) {
    // Lines of an odd length, so that every block boundary falls into a character somewhere.
    const QByteArray line =
        QStringLiteral("00:01 --> 00:02 \u0414\u043e\u0431\u0440\u043e\u65e5.\n").toUtf8();
    const auto chooser = chooserFor(line.repeated(3 * 128 * 1024 / int(line.size())));
    const auto offersUnicode = [&] { return popUp(*chooser).findData("UTF-8") >= 0; };
    EXPECT_TRUE(offersUnicode());
    EXPECT_EQ(popUp(*chooser).currentData().toString(), "UTF-8");
    EXPECT_TRUE(preview(*chooser).startsWith("00:01 --> 00:02 \u0414"));

    // What fails behind the beginning goes a moment later.
    const auto mixed = chooserFor(line.repeated(200 * 1024 / int(line.size())) + russian);
    EXPECT_GE(popUp(*mixed).findData("UTF-8"), 0);
    EXPECT_TRUE(runUntil([&] { return popUp(*mixed).findData("UTF-8") < 0; }));
    EXPECT_GT(popUp(*mixed).count(), 0);
    EXPECT_TRUE(offersUnicode());
}

TEST_F(KVSubtitleEncodingChooserTest, ACancelAndAMissingFileChooseNothing) {
    const auto chooser = chooserFor(russian);
    QTimer::singleShot(0, chooser.get(), &QDialog::reject);
    EXPECT_EQ(chooser->chooseEncoding(), std::nullopt);
    KVSubtitleEncodingChooser missing(url("missing.srt"), "UTF-8");
    EXPECT_TRUE(preview(missing).isEmpty());
    EXPECT_EQ(popUp(missing).count() > 0, canAccept(missing));
}
