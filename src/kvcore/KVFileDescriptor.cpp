#include "kvcore/KVFileDescriptor.h"

#include <unistd.h>

KVFileDescriptor &KVFileDescriptor::operator=(KVFileDescriptor &&other) noexcept {
    if (this == &other) return *this;
    reset();
    _descriptor = std::exchange(other._descriptor, -1);
    return *this;
}

void KVFileDescriptor::reset() {
    if (isValid()) ::close(std::exchange(_descriptor, -1));
}
