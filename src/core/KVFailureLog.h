#pragma once

#include <QString>
#include <QStringList>

struct KVConversionError;

/// Reads what ffmpeg, dvdauthor or mkisofs has printed before it failed.
namespace KVFailureLog {

enum class Tool { none, ffmpeg, dvdauthor, mkisofs };

/// Returns the program that the arguments belong to.
Tool tool(const KVConversionError &error);

/// Returns the signal that ended it; 0 if it exited.
int signal(const KVConversionError &error);

/// Returns the path of the result, of programs that make one file; empty if it is unknown or a temporary
/// file.
QString outputPath(const KVConversionError &error);

/// Returns the reason, else the output, for a comparison with patterns: without the lines that describe the
/// input and the output, with the system's errors in English, and with the paths replaced by "{source}",
/// "{output}",
/// "{subtitles}" and "{temporary}", so that no name of a file matches anything. Ends with "{status
/// <number>}".
QString comparableText(const KVConversionError &error);

/// Returns the last line that reports something, without the name of the part of ffmpeg that printed it. The
/// temporary copy of the subtitles gets the name of the user's file. Empty if there is no such line.
QString lastTellingLine(const KVConversionError &error);

/// Returns the lines without progress and without empty ones.
QStringList lines(const QString &output);

} // namespace KVFailureLog
