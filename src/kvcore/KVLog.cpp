#include "kvcore/KVLog.h"

#include <atomic>
#include <mutex>

namespace {

struct Sink {
    std::mutex mutex;
    std::function<void(const QString &)> write;
    std::atomic<bool> isSet = false; // asked before a line is built, so that a silent log costs nothing
};

Sink &sink() {
    static Sink sink;
    return sink;
}

} // namespace

void KVLog(const QString &message, std::source_location where) {
    if (!sink().isSet) return;
    const QString file = QString::fromUtf8(where.file_name()).section('/', -1);
    const QString line = QStringLiteral("%1:%2 %3: %4")
                             .arg(file)
                             .arg(where.line())
                             .arg(QString::fromUtf8(where.function_name()), message);
    const std::scoped_lock lock(sink().mutex);
    if (sink().write) sink().write(line);
}

void KVSetLogSink(std::function<void(const QString &line)> write) {
    const std::scoped_lock lock(sink().mutex);
    sink().isSet = static_cast<bool>(write);
    sink().write = std::move(write);
}
