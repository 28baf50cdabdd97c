#pragma once

#include <QString>

/// Where the running window is found on the session bus.
namespace KVWindowBusName {
inline const QString service = QStringLiteral("com.brenholt.Kalvora");
inline const QString objectPath = QStringLiteral("/com/brenholt/Kalvora");
/// The scripting commands: Start(u) b, Pause(u) b, SelectPreset(s, u) b with a queue code, Add(as) b with
/// URLs.
inline const QString scriptingInterface = QStringLiteral("com.brenholt.Kalvora.Scripting");
} // namespace KVWindowBusName
