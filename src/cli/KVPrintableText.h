#pragma once

#include <QByteArray>
#include <QString>

/// Text for one line of a terminal: file names may hold anything.
namespace KVPrintableText {

/// Control characters are written "\xNN".
QString ofText(const QString &text);

/// Bytes that are no UTF-8 are written "\xNN" as well.
QString ofBytes(const QByteArray &bytes);

bool isUTF8(const QByteArray &bytes);

/// The columns that `text` takes on a terminal.
int width(const QString &text);

/// As much of `text` as fits; the middle is left out of what does not.
QString truncated(const QString &text, int maximumWidth);

/// `text` and as many blanks as make it that wide.
QString padded(const QString &text, int width);

} // namespace KVPrintableText
