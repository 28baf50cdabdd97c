#include "kvcore/KVMainThread.h"

#include "kvcore/KVFatalError.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <limits>
#include <memory>
#include <mutex>

#include <sys/eventfd.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

/// The blocks on their way to the main thread. An eventfd stays readable as long as there are any, and the
/// event loop takes one for each time it sees that: a block that runs an event loop of its own does not hold
/// up those behind it.
class HandOver {
  public:
    static HandOver &shared() {
        static auto *handOver = new HandOver; // never destroyed: a thread may hand over until the very end
        return *handOver;
    }

    void append(std::function<void()> block) {
        const std::scoped_lock lock(_mutex);
        _blocks.push_back(std::move(block));
        if (_blocks.size() == 1) _signal();
    }

    /// Called with the application object's birth and death.
    void attach() {
        _notifier = std::make_unique<QSocketNotifier>(_descriptor, QSocketNotifier::Read);
        QObject::connect(_notifier.get(), &QSocketNotifier::activated, [this] { _runNext(); });
        qAddPostRoutine([] { shared()._notifier.reset(); });
    }

  private:
    HandOver()
        : _descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
        if (_descriptor < 0) KVFatalError(QStringLiteral("No event descriptor."));
    }

    void _signal() const {
        const quint64 one = 1;
        while (::write(_descriptor, &one, sizeof one) < 0 && errno == EINTR) {
        }
    }

    void _clearSignal() const {
        quint64 count = 0;
        while (::read(_descriptor, &count, sizeof count) < 0 && errno == EINTR) {
        }
    }

    void _runNext() {
        std::function<void()> block;
        {
            const std::scoped_lock lock(_mutex);
            if (_blocks.empty()) return;
            block = std::move(_blocks.front());
            _blocks.pop_front();
            if (_blocks.empty()) _clearSignal();
        }
        block();
    }

    const int _descriptor;
    std::unique_ptr<QSocketNotifier> _notifier;
    std::mutex _mutex;
    std::deque<std::function<void()>> _blocks;
};

/// Every application object that is made gets the notifier; what was handed over before waits for it.
[[maybe_unused]] const bool isRegistered = [] {
    qAddPreRoutine([] { HandOver::shared().attach(); });
    return true;
}();

std::chrono::milliseconds timerInterval(Clock::duration duration) {
    using std::chrono::milliseconds;
    constexpr milliseconds longest(std::numeric_limits<int>::max());
    return std::clamp(std::chrono::ceil<milliseconds>(duration), milliseconds(0), longest);
}

Clock::duration clockDuration(double seconds) {
    constexpr double longest = 2e6; // what a timer can take
    return std::chrono::duration_cast<Clock::duration>(
        std::chrono::duration<double>(std::clamp(seconds, 0.0, longest)));
}

} // namespace

bool KVMainThread::isCurrent() {
    return ::gettid() == ::getpid();
}

void KVMainThread::async(std::function<void()> block) {
    HandOver::shared().append(std::move(block));
}

void KVMainThread::syncOrNow(const std::function<void()> &block) {
    if (isCurrent()) return block();

    std::mutex mutex;
    std::condition_variable changed;
    bool isDone = false;
    async([&] {
        block();
        // Told with the lock held: the waiting thread takes these objects away as soon as it can.
        const std::scoped_lock lock(mutex);
        isDone = true;
        changed.notify_one();
    });
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return isDone; });
}

void KVMainThread::after(double seconds, std::function<void()> block) {
    async([due = Clock::now() + clockDuration(seconds), block = std::move(block)]() mutable {
        QTimer::singleShot(timerInterval(due - Clock::now()), Qt::PreciseTimer, qApp, std::move(block));
    });
}

bool KVMainThread::runUntil(const std::function<bool()> &isDone, double seconds) {
    if (isDone()) return true;

    QEventLoop loop;
    const auto check = [&] {
        if (isDone()) loop.quit();
    };
    const auto *dispatcher = QAbstractEventDispatcher::instance();
    QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &loop, check);
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &loop, check);
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.setTimerType(Qt::PreciseTimer);
    QObject::connect(&deadline, &QTimer::timeout, &loop, &QEventLoop::quit);
    deadline.start(timerInterval(clockDuration(seconds)));
    loop.exec();
    return isDone();
}
