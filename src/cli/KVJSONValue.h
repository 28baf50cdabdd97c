#pragma once

#include <QJsonValue>

#include <optional>

/// The value, or null for none.
template <class T>
QJsonValue KVJSONValueOrNull(const std::optional<T> &value) {
    return value ? QJsonValue(*value) : QJsonValue();
}
