#include "presets/KVStoredValue.h"

#include <cmath>

namespace {

bool isNumber(const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

} // namespace

std::optional<bool> KVStoredValue::boolean(const QVariant &value) {
    if (!isNumber(value)) return std::nullopt;
    return value.toDouble() != 0;
}

std::optional<qint64> KVStoredValue::integer(const QVariant &value) {
    if (!isNumber(value)) return std::nullopt;
    if (value.typeId() != QMetaType::Double) return value.toLongLong();
    constexpr double bound = 0x1p63;
    const double number = value.toDouble();
    if (!(number >= -bound && number < bound)) return std::nullopt;
    return static_cast<qint64>(number);
}

std::optional<qint64> KVStoredValue::exactInteger(const QVariant &value) {
    if (std::trunc(value.toDouble()) != value.toDouble()) return std::nullopt;
    return integer(value);
}

std::optional<double> KVStoredValue::real(const QVariant &value) {
    if (!isNumber(value) || !std::isfinite(value.toDouble())) return std::nullopt;
    return value.toDouble();
}

std::optional<QString> KVStoredValue::text(const QVariant &value) {
    if (value.typeId() != QMetaType::QString) return std::nullopt;
    return value.toString();
}
