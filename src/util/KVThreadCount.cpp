#include "util/KVThreadCount.h"

#include "util/KVPreferenceKeys.h"

#include <algorithm>
#include <cerrno>
#include <memory>

#include <sched.h>
#include <unistd.h>

int KVThreadCount(int maximum, int multiplier) {
    const int count = std::min(KVProcessInfo::activeProcessorCount() * multiplier, maximum);
    switch (KVReflectablePreferences::cpuSettings()) {
    case KVCPUSettings::high:
        return std::max(count, 1);
    case KVCPUSettings::medium:
        return std::max(count / 2, 1);
    case KVCPUSettings::low:
        return std::max(count / 4, 1);
    }
    return std::max(count, 1);
}

int KVProcessInfo::processorCount() {
    return std::max(static_cast<int>(::sysconf(_SC_NPROCESSORS_CONF)), 1);
}

int KVProcessInfo::activeProcessorCount() {
    // The set has to have room for every processor that the system could have: ask for more until it fits.
    for (int room = 1024; room <= 1024 * 1024; room *= 2) {
        const std::unique_ptr<cpu_set_t, void (*)(cpu_set_t *)> set(CPU_ALLOC(static_cast<std::size_t>(room)),
                                                                    [](cpu_set_t *s) { CPU_FREE(s); });
        const std::size_t size = CPU_ALLOC_SIZE(static_cast<std::size_t>(room));
        if (::sched_getaffinity(0, size, set.get()) == 0) return std::max(CPU_COUNT_S(size, set.get()), 1);
        if (errno != EINVAL) break;
    }
    return processorCount();
}
