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

void KVLog(const QString &message, const char *function, const char *file, int line) {
    if (!sink().isSet) return;
    const QString text = QStringLiteral("%1:%2 %3: %4")
                             .arg(QString::fromUtf8(file).section('/', -1))
                             .arg(line)
                             .arg(QString::fromUtf8(function), message);
    const std::scoped_lock lock(sink().mutex);
    if (sink().write) sink().write(text);
}

void KVSetLogSink(std::function<void(const QString &line)> write) {
    const std::scoped_lock lock(sink().mutex);
    sink().isSet = static_cast<bool>(write);
    sink().write = std::move(write);
}
