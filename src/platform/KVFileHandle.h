#pragma once

#include <QByteArray>

#include <utility>

/// Owns one file descriptor and closes it.
class KVFileDescriptor {
  public:
    KVFileDescriptor() = default;
    explicit KVFileDescriptor(int descriptor)
        : _descriptor(descriptor) {}
    KVFileDescriptor(KVFileDescriptor &&other) noexcept
        : _descriptor(std::exchange(other._descriptor, -1)) {}
    KVFileDescriptor &operator=(KVFileDescriptor &&other) noexcept;
    ~KVFileDescriptor() { reset(); }

    int get() const { return _descriptor; }
    bool isValid() const { return _descriptor >= 0; }
    void reset();

  private:
    int _descriptor = -1;
};

/// The read end of a child's output. Used by one thread at a time.
class KVFileHandle {
  public:
    /// Blocks until bytes are there, the writer has closed, or the process it belongs to has exited and left
    /// nothing unread; answers up to 64 KiB, and an empty buffer at the end. No timed polling.
    virtual QByteArray availableData() = 0;
    virtual ~KVFileHandle() = default;
};
