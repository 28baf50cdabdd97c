#pragma once

#include <QList>

/// The entry of a rising list that is nearest to `value`, the lower one on a tie. 0 counts as an entry too: a
/// value that is nearer to it than to any other gives 0.
qint64 KVNearestValue(qint64 value, const QList<qint64> &entries);
