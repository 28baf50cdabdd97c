#pragma once

#include <QByteArray>
#include <QVariantMap>

#include <optional>

/// How the values of the preference store are written as JSON. What JSON cannot tell apart is a dictionary
/// with one key that begins with "$":
///   {"$real": 25}                  a real number that happens to be whole; "inf", "-inf" and "nan" too
///   {"$data": "AAEC"}              data, in base64
///   {"$date": "2024-05-01T10:00:00.000Z"}
///   {"$dictionary": {...}}         a dictionary that would otherwise look like one of these
namespace KVPreferencesCoding {

QByteArray encode(const QVariantMap &values);

/// Nothing where the text is no JSON dictionary.
std::optional<QVariantMap> decode(const QByteArray &json);

/// The value in the form in which it comes back from the file. A type that the store does not know is a
/// programming error.
QVariant normalized(const QVariant &value);

} // namespace KVPreferencesCoding
