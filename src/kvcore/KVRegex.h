#pragma once

#include <QRegularExpression>
#include <QString>

/// The flags of a KVRegex.
enum class KVRegexOptions { none = 0, caseInsensitive = 1 };

/// A regular expression with named groups written (?P<NAME>...). Immutable, and safe to use from several
/// threads. A pattern that does not compile is a programming error.
class KVRegex {
  public:
    explicit KVRegex(const QString &pattern, KVRegexOptions options = KVRegexOptions::none);

    /// True if the pattern matches anywhere in the text.
    bool matches(const QString &text) const;

    /// The first match; ask its captured(name) for a group.
    QRegularExpressionMatch firstMatch(const QString &text) const;

  private:
    QRegularExpression _expression;
};
