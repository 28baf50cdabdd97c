#include "util/KVTruncation.h"

#include "kvcore/KVFatalError.h"

qint64 KVTruncated(double value, const char *what) {
    constexpr double limit = 9223372036854775808.0; // 2 to the 63rd; false for an undefined value as well
    if (!(value >= -limit && value < limit))
        KVFatalError(QStringLiteral("%1 is no whole number: %2").arg(QString::fromUtf8(what)).arg(value));
    return static_cast<qint64>(value);
}
