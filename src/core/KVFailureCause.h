#pragma once

#include <QString>
#include <QStringList>

struct KVConversionError;

/// Which retry helps after a failure, besides trying again as it is.
enum class KVFailureRetry {
    none,             ///< Trying again changes nothing until the user has done something.
    again,            ///< The same conversion may succeed now.
    withoutSubtitles, ///< Without the subtitles file.
    inAnotherFolder,  ///< With the result in another folder.
};

/// Why a conversion failed, in words for the user. Both programs show the same.
struct KVFailureCause {
    QString text;   ///< One or two sentences in the user's language; never empty.
    QString remedy; ///< What the user can do; empty if nothing is known to help.
    KVFailureRetry retry = KVFailureRetry::again;

    /// Returns the cause that the error's text, arguments and status point to. A failure while a disc is made
    /// also names the step. May look at the source's size and at the destination folder: not for a paint
    /// event. Any thread.
    static KVFailureCause of(const KVConversionError &error);

    /// Returns the line of the output that explains the failure most, or the program's own reason; never
    /// empty. For scripts and reports: most of it is English. Any thread.
    static QString errorText(const KVConversionError &error);

    /// Returns the command as it was run, quoted for a shell; empty if no program was run.
    static QString commandLine(const KVConversionError &error);

    /// Returns the last `count` lines of the output without its progress and without empty lines.
    static QStringList lastLines(const KVConversionError &error, int count);
};
