#include "platform/KVSignalWatcher.h"

#include "kvcore/KVMainThread.h"

#include <cerrno>
#include <csignal>

#include <pthread.h>
#include <unistd.h>

namespace {

/// Wakes the watcher for its own end; nothing else uses it.
constexpr int wakeUpSignal = SIGUSR2;
/// Quitting takes two seconds at most.
constexpr timespec timeForOrderlyEnd{1, 900'000'000};

bool isIgnored(int signal) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

sigset_t watchedSignals() {
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGINT);
    ::sigaddset(&signals, SIGTERM);
    if (!isIgnored(SIGHUP)) ::sigaddset(&signals, SIGHUP);
    ::sigaddset(&signals, wakeUpSignal);
    return signals;
}

} // namespace

KVSignalWatcher::KVSignalWatcher(std::function<void()> endOrderly, std::function<void()> beforeSuddenEnd)
    : _endOrderly(std::move(endOrderly))
    , _beforeSuddenEnd(std::move(beforeSuddenEnd)) {
    const sigset_t signals = watchedSignals();
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    _thread = std::thread([this] { _run(); });
}

KVSignalWatcher::~KVSignalWatcher() {
    _isEnding = true;
    ::pthread_kill(_thread.native_handle(), wakeUpSignal);
    _thread.join();
    const sigset_t signals = watchedSignals();
    ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

std::optional<int> KVSignalWatcher::signal() const {
    const int signal = _signal;
    return signal != 0 ? std::optional(signal) : std::nullopt;
}

void KVSignalWatcher::_run() {
    const sigset_t signals = watchedSignals();
    int received = 0;
    while (::sigwait(&signals, &received) != 0) {
    }
    if (_isEnding) return;
    _signal = received;
    KVMainThread::async(_endOrderly);

    int next = 0;
    do
        next = ::sigtimedwait(&signals, nullptr, &timeForOrderlyEnd);
    while (next < 0 && errno == EINTR);
    if (!_isEnding) endSuddenly();
}

void KVSignalWatcher::endSuddenly() const {
    _beforeSuddenEnd();
    constexpr int signalOffset = 128;
    ::_exit(signalOffset + _signal);
}
