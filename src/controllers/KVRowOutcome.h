#pragma once

#include <QString>
#include <QStringList>

class KVConversion;

/// What became of a conversion that has ended, in words for its row and for notifications.
struct KVRowOutcome {
    enum class Kind { unfinished, succeeded, succeededWithWarnings, failed, cancelled };

    Kind kind = Kind::unfinished;
    /// One line; empty for a conversion that has not ended and for a plain success.
    QString summary{};
    /// The cause and what the user can do, or every warning.
    QStringList sentences{};

    bool isSuccess() const { return kind == Kind::succeeded || kind == Kind::succeededWithWarnings; }
    /// True if there is more to read about it than the row shows.
    bool hasDetails() const { return !sentences.isEmpty(); }

    /// `unfinished` until the conversion's state is `finished`. Main thread.
    static KVRowOutcome of(const KVConversion &conversion);
    /// The same for delegates, which learn of the end a moment before the state changes.
    static KVRowOutcome ofEnded(const KVConversion &conversion);
};
