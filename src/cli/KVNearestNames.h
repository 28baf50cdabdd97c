#pragma once

#include <QString>
#include <QStringList>

/// What the user may have meant.
namespace KVNearestNames {

/// At most `maximumCount` of `names`, nearest first: those that differ in few letters (upper and lower case
/// count as equal) or that `name` begins.
QStringList of(const QString &name, const QStringList &names, int maximumCount = 3);

/// " (did you mean A, B or C?)", or nothing where no name is near.
QString hint(const QString &name, const QStringList &names);

} // namespace KVNearestNames
