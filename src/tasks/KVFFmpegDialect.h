#pragma once

#include "tasks/KVFFmpegCapabilities.h"

#include <QString>
#include <QStringList>

/// Our argument lists and the text that our parsers read are one fixed language; the tools of the world speak
/// several. This is the only place that knows. Both directions are pure functions.
namespace KVFFmpegDialect {

/// The list as this tool takes it: an option that it does not know is left out with its value, another word
/// is used where the tool has another word for the same thing, and what the tool has to be told besides is
/// added.
QStringList argumentsForTool(const QStringList &arguments, const KVFFmpegCapabilities &capabilities);

/// Probe text in the form that the parsers know, whichever version printed it: a display matrix rotated by 90
/// degrees either way counts as a "rotate : 90" line, and a stream line loses the id in brackets
/// ("#0:2[0x3](eng)").
QString probeTextFromTool(const QString &text);

} // namespace KVFFmpegDialect
