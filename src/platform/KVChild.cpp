#include "platform/KVChild.h"

#include "kvcore/KVLog.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <memory>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

/// The C library's own `clone`. The thread sanitizer takes over the public name and would treat the child as
/// a fork: it stops watching the thread, in the memory that the child shares with us.
extern "C" int __clone(int (*run)(void *), void *stack, int flags, void *argument, ...);

namespace {

/// What the child needs between its birth and its program, all of it made beforehand. The child writes
/// `problem`: it shares the memory.
struct Launch {
    const char *path;
    char *const *arguments;
    char *const *environment;
    int streams[3]; // what standard input, output and error become; -1 leaves one as it is
    pid_t parent;
    KVChildLimits limits;
    bool endsWithThread;
    int problem;
};

/// The layout in which the kernel takes a signal's disposition.
struct KernelSignalAction {
    void (*handler)(int);
    unsigned long flags;
    void (*restorer)();
    unsigned long mask;
};
constexpr size_t kernelSignalMaskSize = sizeof(unsigned long);

/// Runs in the child, in the parent's memory, while the parent's thread waits: plain system calls only, which
/// also keeps the sanitizers' bookkeeping of the parent untouched.
__attribute__((no_sanitize("address", "thread", "undefined"))) int runInChild(void *argument) {
    auto *launch = static_cast<Launch *>(argument);
    // A group of its own: an interrupt typed at the terminal is for the program, which tells its children.
    ::syscall(SYS_setpgid, 0, 0);
    for (int number = 1; number < NSIG; ++number) {
        const KernelSignalAction byDefault = {SIG_DFL, 0, nullptr, 0};
        ::syscall(SYS_rt_sigaction, number, &byDefault, nullptr, kernelSignalMaskSize);
    }
    if (launch->endsWithThread) ::syscall(SYS_prctl, PR_SET_PDEATHSIG, SIGKILL, 0, 0, 0);
    if (::syscall(SYS_getppid) != launch->parent) ::syscall(SYS_exit_group, 127);

    // Whatever a library left open without the mark goes too.
    ::syscall(SYS_close_range, 3U, UINT_MAX, static_cast<unsigned>(CLOSE_RANGE_CLOEXEC));
    for (int stream = 0; stream < 3; ++stream)
        if (launch->streams[stream] >= 0) ::syscall(SYS_dup3, launch->streams[stream], stream, 0);

    const KVChildLimits &limits = launch->limits;
    const rlimit64 space = {limits.addressSpace, limits.addressSpace};
    const rlimit64 time = {limits.processorSeconds, limits.processorSeconds + 1};
    if (limits.addressSpace > 0) ::syscall(SYS_prlimit64, 0, RLIMIT_AS, &space, nullptr);
    if (limits.processorSeconds > 0) ::syscall(SYS_prlimit64, 0, RLIMIT_CPU, &time, nullptr);

    const unsigned long noSignals = 0;
    ::syscall(SYS_rt_sigprocmask, SIG_SETMASK, &noSignals, nullptr, kernelSignalMaskSize);
    ::syscall(SYS_execve, launch->path, launch->arguments, launch->environment);
    launch->problem = errno;
    ::syscall(SYS_exit_group, 127);
    return 127;
}

/// No signal handler may run in the child while it still has the parent's memory.
class BlockedSignals {
  public:
    BlockedSignals() {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &_before);
    }
    ~BlockedSignals() { ::pthread_sigmask(SIG_SETMASK, &_before, nullptr); }
    BlockedSignals(const BlockedSignals &) = delete;
    BlockedSignals &operator=(const BlockedSignals &) = delete;

  private:
    sigset_t _before;
};

std::vector<char *> pointers(const QList<QByteArray> &texts) {
    std::vector<char *> result;
    for (const QByteArray &text : texts)
        result.push_back(const_cast<char *>(text.constData()));
    result.push_back(nullptr);
    return result;
}

/// A copy above the three standard descriptors, so that wiring one cannot overwrite another.
KVFileDescriptor aboveStandard(int descriptor) {
    return KVFileDescriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, 3));
}

/// A program that was started with SIGCHLD ignored would never learn how its children ended.
void makeExitStatusesAvailable() {
    struct sigaction action = {};
    ::sigaction(SIGCHLD, nullptr, &action);
    if (action.sa_handler == SIG_IGN) ::signal(SIGCHLD, SIG_DFL);
}

void waitForExit(int pidFD) {
    pollfd child = {pidFD, POLLIN, 0};
    while (::poll(&child, 1, -1) < 0 && errno == EINTR) {
    }
}

bool hasExitedBefore(std::chrono::steady_clock::time_point end, int pidFD) {
    using namespace std::chrono;
    pollfd child = {pidFD, POLLIN, 0};
    int result;
    do {
        const auto rest = duration_cast<milliseconds>(end - steady_clock::now()).count();
        result = ::poll(&child, 1, static_cast<int>(std::clamp<qint64>(rest, 0, INT_MAX)));
    } while (result < 0 && errno == EINTR);
    return result > 0;
}

} // namespace

KVResult<std::shared_ptr<KVChild>> KVChild::start(const KVChildPlan &plan) {
    const auto failure = [&](int problem) {
        return tl::unexpected(KVPOSIXError(QString::fromUtf8(plan.path), problem));
    };
    const KVFileDescriptor openedNull(::open("/dev/null", O_RDWR | O_CLOEXEC));
    const KVFileDescriptor null = aboveStandard(openedNull.get());
    if (!null.isValid()) return failure(errno);
    makeExitStatusesAvailable();

    const std::vector<char *> arguments = pointers(QList<QByteArray>{plan.path} + plan.arguments);
    const std::vector<char *> environment = pointers(plan.environment.value_or(QList<QByteArray>{}));
    Launch launch = {plan.path.constData(),
                     arguments.data(),
                     plan.environment ? environment.data() : ::environ,
                     {plan.standardInput >= 0 ? plan.standardInput : null.get(),
                      plan.silencesOutput ? null.get() : plan.standardOutput,
                      plan.silencesError ? null.get() : plan.standardError},
                     ::getpid(),
                     plan.limits,
                     plan.endsWithThread,
                     0};

    constexpr size_t stackSize = size_t{64} * 1024;
    const auto stack = std::make_unique_for_overwrite<std::byte[]>(stackSize);
    int pidFD = -1;
    int process = -1;
    {
        const BlockedSignals blocked;
        process = ::__clone(runInChild, stack.get() + stackSize,
                            CLONE_VM | CLONE_VFORK | CLONE_PIDFD | SIGCHLD, &launch, &pidFD);
    }
    if (process < 0) return failure(errno);

    auto child = std::make_shared<KVChild>(pidFD);
    if (launch.problem == 0) return child;
    child->waitUntilExit();
    return failure(launch.problem);
}

bool KVChild::hasExited() const {
    pollfd child = {pidFD(), POLLIN, 0};
    return ::poll(&child, 1, 0) > 0;
}

void KVChild::waitUntilExit() {
    waitForExit(pidFD());
    status();
}

bool KVChild::waitUntilExit(std::chrono::milliseconds atMost) {
    if (!hasExitedBefore(std::chrono::steady_clock::now() + atMost, pidFD())) return false;
    status();
    return true;
}

int KVChild::status() {
    const std::scoped_lock lock(_mutex);
    if (_isReaped || !hasExited()) return _status;

    constexpr int signalOffset = 128;
    constexpr int unknownStatus = 255;
    siginfo_t end = {};
    int result = -1;
    while ((result = ::waitid(P_PIDFD, static_cast<id_t>(pidFD()), &end, WEXITED)) < 0 && errno == EINTR) {
    }
    if (result < 0) {
        // Someone else took the status; that must not pass for a success.
        KVLog("Exit status of a child lost: " + KVPOSIXError("waitid", errno).reason);
        _status = unknownStatus;
    } else {
        _status = end.si_code == CLD_EXITED ? end.si_status : signalOffset + end.si_status;
    }
    _isReaped = true;
    return _status;
}

bool KVChild::send(int signal) const {
    return !hasExited() && ::syscall(SYS_pidfd_send_signal, pidFD(), signal, nullptr, 0) == 0;
}
