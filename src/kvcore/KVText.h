#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <QVariantList>

class KVRegex;

/// The text helpers that every parser of the program uses.
namespace KVText {

/// The longest leading whole number after optional white space; what follows is ignored ("44100 Hz" is
/// 44100). 0 where there is none; a number that does not fit is the nearest value that does.
qint64 integerValue(QStringView text);

/// The longest leading decimal number after optional white space, read without regard to the locale. 0 where
/// there is none that a double can hold.
double doubleValue(QStringView text);

/// Without the white space (a carriage return counts) at both ends.
QString trimmingWhitespace(QStringView text);

/// Without `prefix`; unchanged where the text does not begin with it.
QString deletingPrefix(QStringView text, QStringView prefix);

/// Without the last character; an empty text stays empty.
QString deletingLastCharacter(QStringView text);

bool containsCaseInsensitive(QStringView text, QStringView part);
bool hasCaseInsensitiveSuffix(QStringView text, QStringView suffix);

bool matches(const QString &text, const KVRegex &regex);

/// The value of the named group in the first match, a null text where nothing matches.
QString valueOfGroup(const QString &text, QStringView groupName, const KVRegex &regex);

/// The query of a URL as a dictionary, percent-decoded; the last of equal names wins.
QMap<QString, QString> urlQueryDictionary(const QString &url);

/// At most `maximumLength` characters: the beginning and the end stay, a mark stands for what was taken out.
QString truncatingMiddle(const QString &text, qsizetype maximumLength);

/// `number` with that many decimals, as C's printf writes it in the C locale: the exact binary value is
/// rounded, a tie to the even digit. 0.125 with two decimals is "0.12".
QString fixed(double number, int decimals);

/// `format` with its conversions replaced by `arguments` in order. Known: %@ (text), %s, %i, %d, %li, %ld
/// with an optional zero-padded width ("%02i"), %f with precision ("%0.2f"), %%. A conversion without an
/// argument shows "(null)"; an unknown one stays as it stands. Numbers are written without regard to the
/// locale.
QString format(const QString &format, const QVariantList &arguments);

/// `text` as one word of a POSIX shell.
QString shellQuoted(const QString &text);

} // namespace KVText
