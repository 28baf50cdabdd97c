#pragma once

#include <QString>

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

    /// Returns the cause that the error's text, arguments and status point to. Any thread.
    static KVFailureCause of(const KVConversionError &error);
};
