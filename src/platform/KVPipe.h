#pragma once

#include "kvcore/KVError.h"
#include "platform/KVChild.h"
#include "platform/KVFileHandle.h"

#include <memory>
#include <mutex>

/// The pipe between a child and us. It outlives the child as long as someone reads.
class KVPipe {
  public:
    static KVResult<std::shared_ptr<KVPipe>> create();

    int writeEnd() const { return _writeEnd.get(); }

    /// The child runs, or could not be started (no child): our copy of the write end goes, and readers learn
    /// when it ends.
    void setChild(std::shared_ptr<KVChild> child);

    bool hasUnreadBytes() const;

    /// See KVFileHandle::availableData.
    QByteArray read() const;

  private:
    std::shared_ptr<KVChild> _childForReading() const;
    bool _waitForBytes(const KVChild &child) const;

    KVFileDescriptor _readEnd;
    KVFileDescriptor _writeEnd;
    mutable std::mutex _mutex;
    std::shared_ptr<KVChild> _child;
};
