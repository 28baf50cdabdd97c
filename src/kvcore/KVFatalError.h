#pragma once

#include <QString>

/// Ends the process with `message`: for programming errors only (an abstract operation that nothing
/// overrides, an impossible value, a resource that the installation lacks). Never shown as a user's error.
/// Any thread may call it.
[[noreturn]] void KVFatalError(const QString &message);
