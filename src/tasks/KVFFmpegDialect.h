#pragma once

#include "tasks/KVFFmpegCapabilities.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

/// Our argument lists and the text that our parsers read are one fixed language; the tools of the world speak
/// several. This is the only place that knows. Both directions are pure functions.
namespace KVFFmpegDialect {

/// The list as this tool takes it: an option that it does not know is left out with its value, another word
/// is used where the tool has another word for the same thing, and what the tool has to be told besides is
/// added.
QStringList argumentsForTool(const QStringList &arguments, const KVFFmpegCapabilities &capabilities);

/// ffmpeg's output as text, line by line as it was printed. ffmpeg copies tags as they are stored, so the
/// output may hold bytes that are not UTF-8; each is replaced by U+FFFD.
QString textFromTool(QByteArrayView output);

/// Probe text in the form that the parsers know, whichever version printed it:
/// - a display matrix that rotates by 90 degrees either way also gets a "rotate : 90" line;
/// - a stream line loses the id in brackets ("#0:2[0x3](eng)");
/// - a channel layout that is known by its name only ("quad", "7.1(wide)") becomes "<n> channels";
/// - "1k fps" becomes "1000 fps".
QString probeTextFromTool(const QString &text);

} // namespace KVFFmpegDialect
