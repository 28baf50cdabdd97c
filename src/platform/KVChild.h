#pragma once

#include "kvcore/KVError.h"
#include "kvcore/KVFileDescriptor.h"

#include <QByteArray>
#include <QList>

#include <chrono>
#include <memory>
#include <mutex>
#include <optional>

/// What a child may use up. 0 sets no limit.
struct KVChildLimits {
    quint64 addressSpace = 0;     ///< Bytes; an allocation beyond it fails in the child.
    quint64 processorSeconds = 0; ///< The system ends the child after them.
};

/// How a child is started. Texts are as the system takes them.
struct KVChildPlan {
    QByteArray path;
    QList<QByteArray> arguments;                        ///< Without the name in front.
    std::optional<QList<QByteArray>> environment;       ///< "NAME=value"; without it the program's own.
    int standardInput = -1;                             ///< What it becomes; -1 is the null device.
    int standardOutput = -1, standardError = -1;        ///< What they become; -1 leaves them as they are.
    bool silencesOutput = false, silencesError = false; ///< To the null device.
    KVChildLimits limits;
    /// The child is killed when the thread that starts it ends, and so with the program. Without this the
    /// child has to notice by itself that the program has ended.
    bool endsWithThread = true;
};

/// One started child, known by its pidfd: waiting, one reaping, signals. Any thread may use it.
class KVChild {
  public:
    /// Starts the child without copying the address space; blocks until it runs its program or has failed.
    static KVResult<std::shared_ptr<KVChild>> start(const KVChildPlan &plan);

    KVChild(int pidFD)
        : _pidFD(pidFD) {}

    /// Readable as soon as the child has exited, and from then on.
    int pidFD() const { return _pidFD.get(); }

    bool hasExited() const;
    /// Blocks until the child has exited, and reaps it.
    void waitUntilExit();
    /// The same, but for this long at most. False if the child still runs.
    bool waitUntilExit(std::chrono::milliseconds atMost);
    /// The exit code, or 128 + the signal that ended the child; 0 before the exit.
    int status();
    /// False where the child has exited already.
    bool send(int signal) const;

  private:
    const KVFileDescriptor _pidFD;
    std::mutex _mutex;
    bool _isReaped = false;
    int _status = 0;
};
