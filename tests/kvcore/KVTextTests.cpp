#include "kvcore/KVRegex.h"
#include "kvcore/KVText.h"
#include "support/KVTestCase.h"

#include <limits>

using KVTextTest = KVTestCase;

TEST_F(KVTextTest, ReadsTheLongestLeadingNumber) {
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    constexpr qint64 least = std::numeric_limits<qint64>::min();
    struct Row {
        QString text;
        qint64 integer;
        double real;
    };
    const std::vector<Row> rows{
        {"44100 Hz", 44100, 44100},
        {"", 0, 0},
        {"Hz 44100", 0, 0},
        {" \r\n\t 12.75kB", 12, 12.75},
        {"-3.5", -3, -3.5},
        {"+7", 7, 7},
        {"- 7", 0, 0},
        {"--7", 0, 0},
        {".5", 0, 0.5},
        {"5.", 5, 5},
        {".", 0, 0},
        {"1.2.3", 1, 1.2},
        {"1,5", 1, 1},
        {"1.5e3x", 1, 1500},
        {"2e", 2, 2},
        {"2e+", 2, 2},
        {"0x10", 0, 0},
        {"inf", 0, 0},
        {"nan", 0, 0},
        {"00:00:04", 0, 0},
        {"04.00 bitrate=2097.2kbits/s", 4, 4},
        {QString::fromUtf8("٣"), 0, 0}, // a digit elsewhere, not here
        {"9223372036854775807", most, 9223372036854775807.0},
        {"9223372036854775808", most, 9223372036854775808.0},
        {"-99999999999999999999", least, -1e20},
        {"1e999", 1, 0},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(KVText::integerValue(row.text), row.integer) << row.text.toStdString();
        EXPECT_DOUBLE_EQ(KVText::doubleValue(row.text), row.real) << row.text.toStdString();
    }
}

TEST_F(KVTextTest, CutsAndComparesTexts) {
    EXPECT_EQ(KVText::trimmingWhitespace(QString("\r\n a b \t\r")), "a b");
    EXPECT_EQ(KVText::deletingPrefix(QString("Stream #0"), QString("Stream ")), "#0");
    EXPECT_EQ(KVText::deletingPrefix(QString("a Stream"), QString("Stream")), "a Stream");
    EXPECT_EQ(KVText::deletingLastCharacter(QString("44k")), "44");
    EXPECT_EQ(KVText::deletingLastCharacter(QString()), "");
    EXPECT_EQ(KVText::deletingLastCharacter(QString::fromUtf8("a🎬")), "a");
    EXPECT_TRUE(KVText::containsCaseInsensitive(QString("Ünited"), QString("ÜNI")));
    EXPECT_TRUE(KVText::hasCaseInsensitiveSuffix(QString("FILM.MOV"), QString(".mov")));
    EXPECT_FALSE(KVText::hasCaseInsensitiveSuffix(QString("mov"), QString(".mov")));
}

TEST_F(KVTextTest, ShortensInTheMiddleWithoutCuttingACharacter) {
    const QString text = QString::fromUtf8("ab🎬cdefgh");
    for (qsizetype length = 0; length <= text.size(); ++length) {
        const QString cut = KVText::truncatingMiddle(text, length);
        EXPECT_LE(cut.size(), length);
        EXPECT_TRUE(cut.isValidUtf16()) << length;
    }
    EXPECT_EQ(KVText::truncatingMiddle("abcdefghij", 5), QString::fromUtf8("ab…ij"));
    EXPECT_EQ(KVText::truncatingMiddle("abcde", 5), "abcde");
}

TEST_F(KVTextTest, FillsTheConversionsOfAFormatInOrder) {
    struct Row {
        QString format;
        QVariantList arguments;
        QString expected;
    };
    const std::vector<Row> rows{
        {"%@ %02li.iso", {"Film", 3}, "Film 03.iso"},
        {"%02i:%02d", {123, -4}, "123:-4"},
        {"%03i", {-4}, "-04"},
        {"%4d|", {7}, "   7|"},
        {"%0.2f %f", {1.005e3, 0.5}, "1005.00 0.500000"},
        {"100%% of %s", {"it"}, "100% of it"},
        {"%i and %@", {}, "(null) and (null)"},
        {"%d", {2.9}, "2"},
        {"%d", {-2.9}, "-2"},
        {"%ld", {Q_INT64_C(9007199254740993)}, "9007199254740993"},
        {"%x %q %", {1}, "%x %q %"},
        {"%@", {"a %d"}, "a %d"}, // what was put in is not looked at again
        {"", {1}, ""},
    };
    for (const Row &row : rows)
        EXPECT_EQ(KVText::format(row.format, row.arguments), row.expected) << row.format.toStdString();
}

TEST_F(KVTextTest, ReadsTheQueryOfAURL) {
    using Dictionary = QMap<QString, QString>;
    EXPECT_EQ(KVText::urlQueryDictionary("file:///a%20b.mov?x=1&name=a%26b%3Dc&x=2&flag&e=#f?g=1"),
              (Dictionary{{"x", "2"}, {"name", "a&b=c"}, {"flag", ""}, {"e", ""}}));
    EXPECT_EQ(KVText::urlQueryDictionary("file:///a?u=http://h/?q=1"), (Dictionary{{"u", "http://h/?q=1"}}));
    EXPECT_EQ(KVText::urlQueryDictionary("file:///a.mov"), Dictionary());
}

TEST_F(KVTextTest, QuotesAWordSoThatTheShellGivesItBack) {
    const QStringList words{"plain-1.mov", "",  "a b", "it's", "$HOME `x` \"y\"",
                            "line\nfeed",  "~", "a=b", "*"};
    for (const QString &word : words) {
        const QString command = "printf %s " + KVText::shellQuoted(word) + " > " + path("out");
        ASSERT_EQ(std::system(command.toUtf8().constData()), 0);
        EXPECT_EQ(QString::fromUtf8(read(path("out"))), word);
    }
    EXPECT_EQ(KVText::shellQuoted("plain-1.mov"), "plain-1.mov");
}

TEST_F(KVTextTest, FindsNamedGroups) {
    const KVRegex regex("(?P<RATE>\\d+) Hz(?:, (?P<LAYOUT>\\w+))?", KVRegexOptions::caseInsensitive);
    EXPECT_EQ(KVText::valueOfGroup("aac, 44100 HZ, stereo", u"RATE", regex), "44100");
    EXPECT_EQ(KVText::valueOfGroup("aac, 44100 hz, stereo", u"LAYOUT", regex), "stereo");
    EXPECT_TRUE(KVText::valueOfGroup("nothing", u"RATE", regex).isNull());
    EXPECT_FALSE(KVText::matches("44100 Hz", KVRegex("hz")));
    EXPECT_DEATH(KVRegex("(?P<A>"), "Bad pattern");
}

TEST_F(KVTextTest, RoundsTheExactBinaryValueToEven) {
    struct Row {
        double number;
        int decimals;
        const char *text;
    };
    const std::vector<Row> rows{{0.125, 2, "0.12"},  {0.375, 2, "0.38"},   {-0.125, 2, "-0.12"},
                                {1.005, 2, "1.00"},  {23.976, 2, "23.98"}, {2.5, 0, "2"},
                                {1e300, 1, nullptr}, {25, 2, "25.00"}};
    for (const Row &row : rows) {
        const QString text = KVText::fixed(row.number, row.decimals);
        EXPECT_EQ(text, row.text ? QString(row.text) : QString::asprintf("%.1f", row.number));
    }
    EXPECT_EQ(KVText::format("%0.2f s", {0.125}), "0.12 s");
}
