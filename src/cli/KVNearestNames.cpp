#include "cli/KVNearestNames.h"

#include <QList>

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

/// How many letters have to be put in, taken out or exchanged.
qsizetype editDistance(const QString &from, const QString &to) {
    QList<qsizetype> row(to.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 1; i <= from.size(); ++i) {
        qsizetype diagonal = row[0];
        row[0] = i;
        for (qsizetype j = 1; j <= to.size(); ++j) {
            const qsizetype exchanged = diagonal + (from[i - 1] == to[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, exchanged});
        }
    }
    return row.last();
}

constexpr qsizetype tooFar = std::numeric_limits<qsizetype>::max();

qsizetype distance(const QString &name, const QString &candidate) {
    const QString wanted = name.toCaseFolded();
    const QString present = candidate.toCaseFolded();
    const qsizetype edits = editDistance(wanted, present);
    if (edits <= std::max<qsizetype>(1, wanted.size() / 3)) return edits;
    // A beginning is farther than any misspelling.
    return !wanted.isEmpty() && present.startsWith(wanted) ? 100 + present.size() : tooFar;
}

} // namespace

QStringList KVNearestNames::of(const QString &name, const QStringList &names, int maximumCount) {
    QList<std::pair<qsizetype, QString>> found;
    for (const QString &candidate : names)
        if (const qsizetype far = distance(name, candidate); far != tooFar) found.append({far, candidate});
    std::ranges::stable_sort(found, {}, &std::pair<qsizetype, QString>::first);
    QStringList nearest;
    for (const auto &[far, candidate] :
         std::as_const(found).first(std::min<qsizetype>(found.size(), maximumCount)))
        nearest.append(candidate);
    return nearest;
}

QString KVNearestNames::hint(const QString &name, const QStringList &names) {
    QStringList nearest = of(name, names);
    if (nearest.isEmpty()) return {};
    for (QString &candidate : nearest)
        candidate = QStringLiteral("\"%1\"").arg(candidate);
    const QString last = nearest.takeLast();
    const QString text = nearest.isEmpty() ? last : nearest.join(QLatin1String(", ")) + " or " + last;
    return QStringLiteral(" (did you mean %1?)").arg(text);
}
