#pragma once

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
