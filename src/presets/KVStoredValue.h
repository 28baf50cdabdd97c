#pragma once

#include <QVariant>

#include <optional>

/// Reads a value of a stored dictionary, which may hold anything: what is of another kind counts as absent.
namespace KVStoredValue {

std::optional<bool> boolean(const QVariant &value); ///< The truth of a number.
/// A real number is truncated toward zero; one that does not fit counts as absent.
std::optional<qint64> integer(const QVariant &value);
/// As `integer`, but a real number with a fraction counts as absent too.
std::optional<qint64> exactInteger(const QVariant &value);
std::optional<double> real(const QVariant &value);
std::optional<QString> text(const QVariant &value);

} // namespace KVStoredValue
