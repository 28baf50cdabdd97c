#pragma once

#include "core/KVFailureCause.h"
#include "kvcore/KVError.h"

#include <QString>
#include <QStringList>
#include <QUrl>

class KVConversion;

/// Everything that is known about a failed conversion, or about a successful one with warnings, for the user
/// to read, copy and save.
struct KVFailureDetails {
    QString name = {}; ///< The names of the files.
    bool hasFailed = false;
    QString cause = {};        ///< Empty for a success.
    QString remedy = {};       ///< Empty where nothing is known to help.
    QStringList warnings = {}; ///< One sentence each.
    QString command = {};      ///< As a shell takes it; empty where no child ran.
    QString log = {};          ///< The last lines of the child's output.
    KVFailureRetry retry = KVFailureRetry::again;

    /// Of a conversion that has ended. Main thread.
    static KVFailureDetails of(const KVConversion &conversion);

    /// All of it as plain text, in paragraphs.
    QString text() const;
    /// What a file with the text may be called.
    QString proposedFileName() const;
    /// Writes the text. What was there before stays whole until the new text is written.
    KVResult<void> save(const QUrl &url) const;
};
