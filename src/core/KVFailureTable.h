#pragma once

#include "core/KVFailureCause.h"

#include <vector>

/// A cause of failures. All texts are keys of translations.
///
/// Patterns are plain texts, compared with upper and lower case. They match the text that
/// KVFailureLog::comparableText makes, in which paths are replaced by "{source}", "{output}", "{subtitles}"
/// and "{temporary}", and the exit status is "{status 69}". Patterns that are texts of the program are
/// also compared in the user's language; a "%" ends a pattern.
struct KVFailureRow {
    std::vector<const char *> patterns; ///< One of them is enough.
    const char *text;                   ///< Null where the program's own reason is the text.
    const char *remedy;                 ///< Null if nothing is known to help.
    KVFailureRetry retry = KVFailureRetry::again;
    const char *errorText = nullptr; ///< English, for scripts; null if the line of the output is used.

    // The alert at the end of a run.
    std::vector<const char *>
        alertPatterns{};               ///< Looked for in the whole report; empty if there is no alert.
    const char *alertText = nullptr;   ///< Null if it is the same as `text`.
    const char *alertRemedy = nullptr; ///< Null if it is the same as `remedy`.
};

namespace KVFailureTable {

/// In the order in which they are tried: what explains comes before what only follows from it.
const std::vector<KVFailureRow> &rows();

/// The first row with an alert that the report of a run asks for; null if there is none.
const KVFailureRow *alertFor(const QString &report);

} // namespace KVFailureTable
