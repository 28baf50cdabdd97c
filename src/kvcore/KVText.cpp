#include "kvcore/KVText.h"

#include "kvcore/KVRegex.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QUrl>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

bool isDigit(QChar character) {
    return character >= '0' && character <= '9';
}

bool isSign(QChar character) {
    return character == '+' || character == '-';
}

qsizetype endOfDigits(QStringView text, qsizetype from) {
    while (from < text.size() && isDigit(text[from]))
        ++from;
    return from;
}

QStringView withoutLeadingWhitespace(QStringView text) {
    const auto *first = std::ranges::find_if_not(text, [](QChar character) { return character.isSpace(); });
    return text.sliced(first - text.begin());
}

/// Where a decimal number at the beginning of the text ends; 0 where none begins.
qsizetype endOfDecimalNumber(QStringView text) {
    const qsizetype start = !text.isEmpty() && isSign(text[0]) ? 1 : 0;
    qsizetype end = endOfDigits(text, start);
    qsizetype digits = end - start;
    if (end < text.size() && text[end] == '.') {
        const qsizetype fractionEnd = endOfDigits(text, end + 1);
        digits += fractionEnd - end - 1;
        end = fractionEnd;
    }
    if (digits == 0) return 0;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const qsizetype exponent = end + 1 < text.size() && isSign(text[end + 1]) ? end + 2 : end + 1;
        const qsizetype exponentEnd = endOfDigits(text, exponent);
        if (exponentEnd > exponent) end = exponentEnd;
    }
    return end;
}

} // namespace

qint64 KVText::integerValue(QStringView text) {
    const QStringView number = withoutLeadingWhitespace(text);
    const bool isSigned = !number.isEmpty() && isSign(number[0]);
    const qsizetype start = isSigned ? 1 : 0;
    const qsizetype end = endOfDigits(number, start);
    if (end == start) return 0;

    bool fits = false;
    const qint64 value = number.first(end).toLongLong(&fits);
    if (fits) return value;
    const bool isNegative = isSigned && number[0] == '-';
    return isNegative ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
}

double KVText::doubleValue(QStringView text) {
    const QStringView rest = withoutLeadingWhitespace(text);
    return rest.first(endOfDecimalNumber(rest)).toLatin1().toDouble();
}

QString KVText::trimmingWhitespace(QStringView text) {
    return text.trimmed().toString();
}

QString KVText::deletingPrefix(QStringView text, QStringView prefix) {
    return (text.startsWith(prefix) ? text.sliced(prefix.size()) : text).toString();
}

QString KVText::deletingLastCharacter(QStringView text) {
    if (text.isEmpty()) return {};
    const bool endsInPair =
        text.size() > 1 && text.last(1)[0].isLowSurrogate() && text[text.size() - 2].isHighSurrogate();
    return text.chopped(endsInPair ? 2 : 1).toString();
}

bool KVText::containsCaseInsensitive(QStringView text, QStringView part) {
    return text.contains(part, Qt::CaseInsensitive);
}

bool KVText::hasCaseInsensitiveSuffix(QStringView text, QStringView suffix) {
    return text.endsWith(suffix, Qt::CaseInsensitive);
}

bool KVText::matches(const QString &text, const KVRegex &regex) {
    return regex.matches(text);
}

QString KVText::valueOfGroup(const QString &text, QStringView groupName, const KVRegex &regex) {
    return regex.firstMatch(text).captured(groupName);
}

QMap<QString, QString> KVText::urlQueryDictionary(const QString &url) {
    const auto decoded = [](const QString &part) { return QUrl::fromPercentEncoding(part.toUtf8()); };
    const QString query = url.section('#', 0, 0).section('?', 1);
    QMap<QString, QString> dictionary;
    for (const QString &pair : query.split('&', Qt::SkipEmptyParts))
        dictionary.insert(decoded(pair.section('=', 0, 0)), decoded(pair.section('=', 1)));
    return dictionary;
}

QString KVText::truncatingMiddle(const QString &text, qsizetype maximumLength) {
    if (text.size() <= maximumLength) return text;
    if (maximumLength <= 0) return {};
    qsizetype front = maximumLength / 2;
    qsizetype back = maximumLength - 1 - front;
    // Never cut a character in half.
    if (front > 0 && text[front - 1].isHighSurrogate()) --front;
    if (back > 0 && text[text.size() - back].isLowSurrogate()) --back;
    return text.first(front) + QChar(0x2026) + text.last(back);
}

QString KVText::shellQuoted(const QString &text) {
    static const QRegularExpression plainWord(QStringLiteral("^[A-Za-z0-9_@%+:,./-]+\\z"));
    if (plainWord.match(text).hasMatch()) return text;
    return "'" + QString(text).replace("'", "'\\''") + "'";
}

namespace {

/// Conversions from double truncate toward zero.
qint64 truncatedNumber(const QVariant &value) {
    const int type = value.typeId();
    if (type != QMetaType::Double && type != QMetaType::Float) return value.toLongLong();
    const double number = value.toDouble();
    if (std::isnan(number)) return 0;
    if (std::abs(number) < 0x1p63) return static_cast<qint64>(number);
    return number < 0 ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
}

QString padded(const QString &number, QStringView flags) {
    const qsizetype width = flags.toInt();
    if (!flags.startsWith('0')) return number.rightJustified(width);
    const bool isNegative = number.startsWith('-');
    const QString digits = number.sliced(isNegative ? 1 : 0);
    return (isNegative ? "-" : "") + digits.rightJustified(width - (isNegative ? 1 : 0), '0');
}

QString converted(const QRegularExpressionMatch &conversion, const QVariant &argument) {
    if (!argument.isValid()) return QStringLiteral("(null)");
    const QChar kind = conversion.captured().back();
    const QString width = conversion.captured(QStringLiteral("width"));
    if (kind == '@' || kind == 's') return argument.toString();
    if (kind == 'f') {
        const QString precision = conversion.captured(QStringLiteral("precision"));
        return padded(KVText::fixed(argument.toDouble(), precision.isNull() ? 6 : precision.toInt()), width);
    }
    return padded(QString::number(truncatedNumber(argument)), width);
}

} // namespace

QString KVText::fixed(double number, int decimals) {
    constexpr int mostDigits = std::numeric_limits<double>::max_exponent10 + 3; // with sign and point
    QByteArray text(mostDigits + decimals, Qt::Uninitialized);
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, decimals);
    return QString::fromLatin1(text.constData(), end.ptr - text.constData());
}

QString KVText::format(const QString &format, const QVariantList &arguments) {
    static const QRegularExpression conversions(
        QStringLiteral("%(?:%|[@s]|(?<width>[0-9]{0,3})(?:l?[di]|(?:\\.(?<precision>[0-9]{1,2}))?f))"));
    QString result;
    qsizetype copied = 0;
    qsizetype next = 0;
    for (auto matches = conversions.globalMatch(format); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += QStringView(format).sliced(copied, match.capturedStart() - copied);
        result += match.captured() == "%%" ? QStringLiteral("%") : converted(match, arguments.value(next++));
        copied = match.capturedEnd();
    }
    result += QStringView(format).sliced(copied);
    return result;
}
