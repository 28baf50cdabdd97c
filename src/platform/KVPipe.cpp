#include "platform/KVPipe.h"

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

KVResult<std::shared_ptr<KVPipe>> KVPipe::create() {
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0) return tl::unexpected(KVPOSIXError("pipe", errno));
    auto pipe = std::make_shared<KVPipe>();
    pipe->_readEnd = KVFileDescriptor(ends[0]);
    pipe->_writeEnd = KVFileDescriptor(ends[1]);
    return pipe;
}

void KVPipe::setChild(std::shared_ptr<KVChild> child) {
    const std::scoped_lock lock(_mutex);
    _child = std::move(child);
    _writeEnd.reset();
}

bool KVPipe::hasUnreadBytes() const {
    int count = 0;
    return ::ioctl(_readEnd.get(), FIONREAD, &count) == 0 && count > 0;
}

std::shared_ptr<KVChild> KVPipe::_childForReading() const {
    const std::scoped_lock lock(_mutex);
    return _child;
}

QByteArray KVPipe::read() const {
    const auto child = _childForReading();
    if (!child || !_waitForBytes(*child)) return {};

    constexpr qsizetype mostBytes = qsizetype{64} * 1024;
    QByteArray bytes(mostBytes, Qt::Uninitialized);
    ssize_t count = -1;
    while ((count = ::read(_readEnd.get(), bytes.data(), mostBytes)) < 0 && errno == EINTR) {
    }
    bytes.resize(count > 0 ? count : 0);
    bytes.squeeze();
    return bytes;
}

/// False at the end of the output: the child has exited and nothing is left. A process that the child left
/// behind may hold the pipe open for ever, so the end of the pipe is not what counts.
bool KVPipe::_waitForBytes(const KVChild &child) const {
    pollfd sources[2] = {{_readEnd.get(), POLLIN, 0}, {child.pidFD(), POLLIN, 0}};
    while (true) {
        if (::poll(sources, 2, -1) < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        if (sources[0].revents & POLLIN) return true;
        // The child may have written between the two looks that one poll takes.
        if (sources[1].revents) return hasUnreadBytes();
        // The pipe has ended but the child lives on: only its exit is of interest now.
        if (sources[0].revents) sources[0].fd = -1;
    }
}
