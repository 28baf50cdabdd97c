#pragma once

#include <QString>

#include <functional>
#include <source_location>

/// Writes one debug line with the calling method, file and line. Log text is English. Any thread may call it.
/// Nothing is written until a sink is set.
void KVLog(const QString &message, std::source_location where = std::source_location::current());

/// Where log lines go; the sink gets the finished line without a line feed and may be called from any thread,
/// one call at a time. An empty sink switches the log off.
void KVSetLogSink(std::function<void(const QString &line)> sink);
