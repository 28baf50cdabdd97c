#pragma once

#include "kvcore/KVFileDescriptor.h"

#include <QByteArray>

/// The read end of a child's output. Used by one thread at a time.
class KVFileHandle {
  public:
    /// Blocks until bytes are there, the writer has closed, or the process it belongs to has exited and left
    /// nothing unread; answers up to 64 KiB, and an empty buffer at the end. A process that closes its output
    /// early is waited for, so that a loop which reads while it is running never spins. No timed polling.
    virtual QByteArray availableData() = 0;
    virtual ~KVFileHandle() = default;
};
