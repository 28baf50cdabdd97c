#include "kvcore/KVFatalError.h"

#include "kvcore/KVLog.h"

#include <cstdio>
#include <cstdlib>

void KVFatalError(const QString &message) {
    KVLog("Fatal error: " + message);
    std::fprintf(stderr, "kalvora: internal error: %s\n", message.toUtf8().constData());
    std::fflush(stderr);
    std::abort();
}
