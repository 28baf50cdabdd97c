#pragma once

#include <QString>

namespace KVTime {

/// A duration for the user: "5 sec", "2 min 5 sec", "1 h 2 min". Anything that is no such time (negative,
/// infinite, undefined) gives "--".
QString localizedTimeString(double seconds);

/// A position or duration as a clock shows it, with begun seconds dropped: "0:17", "4:00", "1:02:03".
/// Anything that is no such time gives "--".
QString clockText(double seconds);

} // namespace KVTime
