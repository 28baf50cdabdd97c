#include "cli/KVPrintableText.h"

#include <QList>

#include <algorithm>

#include <wchar.h>

namespace {

bool isControl(char32_t character) {
    return character < 0x20 || (character >= 0x7f && character < 0xa0);
}

QString escaped(uchar byte) {
    return QStringLiteral("\\x") +
           QStringLiteral("%1").arg(static_cast<int>(byte), 2, 16, QLatin1Char('0')).toUpper();
}

int columns(char32_t character) {
    return std::max(::wcwidth(static_cast<wchar_t>(character)), 0);
}

/// The longest beginning of `characters` that fits.
qsizetype fitting(const QList<uint> &characters, int maximumWidth, bool isFromEnd) {
    int used = 0;
    for (qsizetype count = 0; count < characters.size(); ++count) {
        used += columns(characters[isFromEnd ? characters.size() - 1 - count : count]);
        if (used > maximumWidth) return count;
    }
    return characters.size();
}

} // namespace

QString KVPrintableText::ofText(const QString &text) {
    QString printable;
    for (const QChar character : text)
        printable += isControl(character.unicode()) ? escaped(static_cast<uchar>(character.unicode()))
                                                    : QString(character);
    return printable;
}

QString KVPrintableText::ofBytes(const QByteArray &bytes) {
    if (isUTF8(bytes)) return ofText(QString::fromUtf8(bytes));
    QString printable;
    for (const char byte : bytes) {
        const auto value = static_cast<uchar>(byte);
        printable += value < 0x80 && !isControl(value) ? QString(QLatin1Char(byte)) : escaped(value);
    }
    return printable;
}

bool KVPrintableText::isUTF8(const QByteArray &bytes) {
    return bytes.isValidUtf8();
}

int KVPrintableText::width(const QString &text) {
    int width = 0;
    for (const uint character : text.toUcs4())
        width += columns(character);
    return width;
}

QString KVPrintableText::truncated(const QString &text, int maximumWidth) {
    if (width(text) <= maximumWidth) return text;
    if (maximumWidth < 1) return {};
    const auto characters = text.toUcs4();
    const auto part = [&](qsizetype first, qsizetype count) {
        return QString::fromUcs4(reinterpret_cast<const char32_t *>(characters.constData()) + first, count);
    };
    const QString head = part(0, fitting(characters, maximumWidth / 2, false));
    const qsizetype tailLength = fitting(characters, maximumWidth - width(head) - 1, true);
    return head + QChar(0x2026) + part(characters.size() - tailLength, tailLength);
}

QString KVPrintableText::padded(const QString &text, int wanted) {
    return text + QString(std::max(wanted - width(text), 0), u' ');
}
