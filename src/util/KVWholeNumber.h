#pragma once

#include <QtGlobal>

#include <cmath>
#include <limits>

/// `value` truncated toward zero; the nearest number where it does not fit, 0 where it is no number.
inline qint64 KVWholeNumber(double value) {
    using Limits = std::numeric_limits<qint64>;
    if (std::isnan(value)) return 0;
    if (value >= static_cast<double>(Limits::max())) return Limits::max();
    if (value <= static_cast<double>(Limits::min())) return Limits::min();
    return static_cast<qint64>(value);
}
