#include "controllers/KVSubtitlesDetection.h"

#include "presets/video/base/KVSubtitlesFile.h"
#include "support/KVTestCase.h"
#include "video_info/media_file/KVVideoFile.h"

#include <unicode/unistr.h>

namespace {

/// `text` in an encoding.
QByteArray encoded(const QString &text, const char *encoding) {
    const icu::UnicodeString source(reinterpret_cast<const UChar *>(text.utf16()), int32_t(text.size()));
    QByteArray bytes(text.size() * 4 + 8, '\0');
    const auto length = source.extract(0, source.length(), bytes.data(), uint32_t(bytes.size()), encoding);
    bytes.truncate(length);
    return bytes;
}

QString subtitles(const QStringList &lines) {
    QString text;
    for (qsizetype i = 0; i < lines.size(); ++i)
        text += QStringLiteral("%1\n00:00:0%1,000 --> 00:00:0%1,900\n%2\n\n").arg(i + 1).arg(lines[i]);
    return text;
}

class KVSubtitlesDetectionTest : public KVTestCase {
  protected:
    /// A video whose subtitles file has this content.
    std::shared_ptr<KVVideoFile> detected(const QByteArray &content) const {
        auto video = std::make_shared<KVVideoFile>(url("a.mkv"));
        video->setSubtitles(QUrl::fromLocalFile(write("a.srt", content)));
        KVSubtitlesDetection::settleEncoding(*video);
        return video;
    }
};

TEST_F(KVSubtitlesDetectionTest, FindsTheEncodingThatReadsTheText) {
    const struct {
        const char *encoding;
        QStringList lines;
    } rows[] = {
        {"windows-1251",
         {QStringLiteral("Добро пожаловать на борт."), QStringLiteral("Мы выходим в море на рассвете."),
          QStringLiteral("Впереди тысяча фьордов.")}},
        {"KOI8-R",
         {QStringLiteral("Добро пожаловать на борт."), QStringLiteral("Мы выходим в море на рассвете.")}},
        {"windows-1252",
         {QStringLiteral("Schöne Grüße aus Köln."), QStringLiteral("Wir müssen über die Brücke gehen."),
          QStringLiteral("Das wäre großartig für uns.")}},
        {"windows-1253",
         {QStringLiteral("Καλώς ήρθατε στο πλοίο."), QStringLiteral("Φεύγουμε με την αυγή για το νησί.")}},
        {"Shift_JIS",
         {QStringLiteral("船へようこそ。"), QStringLiteral("夜明けに海へ出ます。"),
          QStringLiteral("千のフィヨルドが待っています。")}},
        {"GB18030", {QStringLiteral("欢迎登船。"), QStringLiteral("我们黎明时出海。前面有很多峡湾。")}},
        {"UTF-8", {QStringLiteral("Добро пожаловать"), QStringLiteral("plain")}},
        {"UTF-16", {QStringLiteral("Добро пожаловать"), QStringLiteral("plain")}},
    };
    for (const auto &row : rows) {
        const QString text = subtitles(row.lines);
        const QByteArray bytes = encoded(text, row.encoding);
        const auto video = detected(bytes);
        ASSERT_TRUE(video->subtitlesFileURL) << row.encoding;
        auto decoded = KVSubtitlesFile::decoded(bytes, video->subtitlesFileEncoding).value_or(QString());
        EXPECT_EQ(decoded.remove(QChar::ByteOrderMark), text)
            << row.encoding << " was taken for " << video->subtitlesFileEncoding.toStdString();
        EXPECT_TRUE(video->warnings.isEmpty());
    }
    EXPECT_EQ(detected("")->subtitlesFileEncoding, "UTF-8");
}

TEST_F(KVSubtitlesDetectionTest, WarnsIfNoEncodingFitsUntilOtherSubtitlesAreSet) {
    QByteArray noise;
    for (int i = 0; i < 4000; ++i)
        noise += char(i * 7919 % 251);
    const auto video = detected(noise);
    EXPECT_FALSE(video->subtitlesFileURL);
    EXPECT_EQ(video->subtitlesText(), "");
    EXPECT_EQ(video->unreadableSubtitlesURL(), url("a.srt"));
    ASSERT_EQ(video->warnings.size(), 1);
    EXPECT_TRUE(video->warnings.first().startsWith("The subtitles in 'a.srt' are not used"));

    video->warnings.append("another one");
    video->setSubtitles(url("b.srt"), "windows-1251");
    EXPECT_EQ(video->warnings, QStringList{"another one"});
    EXPECT_EQ(video->subtitlesText(), "Subtitles: b.srt (windows-1251)");
    EXPECT_FALSE(video->unreadableSubtitlesURL());
}

} // namespace
