#pragma once

#include <memory>

/// Whether the hardware H.264 encoder works on this machine: found out by one small run of the tool, started
/// when the shared instance is first asked for. Stands beside KVFFmpegTask because it runs one.
class KVHardwareAcceleration {
  public:
    static KVHardwareAcceleration &shared();

    /// True until the test has its result. Any thread.
    bool isHardwareAccelerationAvailable() const;

    /// Blocks until the result is there. Any thread but the test's own.
    void waitForResult() const;

    /// Puts a result in place of the test's: for tests and for callers that know. No test is started
    /// afterwards.
    static void setResult(bool isAvailable);

  private:
    struct Private;
    KVHardwareAcceleration();
    ~KVHardwareAcceleration();
    std::unique_ptr<Private> _p;
};
