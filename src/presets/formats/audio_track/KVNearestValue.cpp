#include "presets/formats/audio_track/KVNearestValue.h"

namespace {

/// Unsigned, since stored numbers may be anything and their difference need not fit.
quint64 distance(qint64 a, qint64 b) {
    return a > b ? quint64(a) - quint64(b) : quint64(b) - quint64(a);
}

} // namespace

qint64 KVNearestValue(qint64 value, const QList<qint64> &entries) {
    qint64 best = 0;
    for (const qint64 entry : entries)
        if (distance(entry, value) < distance(best, value)) best = entry;
    return best;
}
