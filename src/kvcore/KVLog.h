#pragma once

#include <QString>

#include <functional>

/// Writes one debug line with the calling method, file and line. Log text is English. Any thread may call it.
/// Nothing is written until a sink is set. The place is the caller's; the built-ins stand for
/// std::source_location, which Clang 14 lacks.
void KVLog(const QString &message, const char *function = __builtin_FUNCTION(),
           const char *file = __builtin_FILE(), int line = __builtin_LINE());

/// Where log lines go; the sink gets the finished line without a line feed and may be called from any thread,
/// one call at a time. An empty sink switches the log off.
void KVSetLogSink(std::function<void(const QString &line)> sink);
