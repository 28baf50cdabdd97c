#pragma once

#include <QString>

namespace KVTime {

/// A duration for the user: "5 sec", "2 min 5 sec", "1 h 2 min". Anything that is no such time (negative,
/// infinite, undefined) gives "--".
QString localizedTimeString(double seconds);

} // namespace KVTime
