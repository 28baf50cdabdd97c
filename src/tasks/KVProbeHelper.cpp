#include "tasks/KVProbeHelper.h"

#include "kvcore/KVFileDescriptor.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVMainThread.h"
#include "platform/KVChild.h"
#include "platform/KVResources.h"

#include <QFile>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/socket.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char *programName = "kalvora-probe";
constexpr int mostHelpers = 4;
constexpr double secondsUntilReaping = 11; ///< An idle helper exits after ten.
constexpr quint32 longestText = 16 * 1024 * 1024;
std::atomic<std::chrono::milliseconds> maximumDuration{std::chrono::seconds(5)};

/// One running helper. One thread at a time uses it.
class Helper {
  public:
    /// Null if the program does not start.
    static std::unique_ptr<Helper> start() {
        int ends[2];
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return nullptr;
        KVFileDescriptor own(ends[0]);
        const KVFileDescriptor other(ends[1]);
        KVChildPlan plan;
        plan.path = QFile::encodeName(KVResources::helperPath(programName));
        plan.standardInput = other.get();
        plan.standardOutput = other.get();
        plan.silencesError = true;
        plan.endsWithThread = false; // it exits when the socket is closed
        const auto child = KVChild::start(plan);
        if (child) return std::unique_ptr<Helper>(new Helper(std::move(own), *child));
        KVLog(QString(programName) + " does not start: " + child.error().reason);
        return nullptr;
    }

    ~Helper() {
        _child->send(SIGKILL);
        _child->waitUntilExit();
    }
    Helper(const Helper &) = delete;
    Helper &operator=(const Helper &) = delete;

    bool hasExited() const { return _child->hasExited(); }

    /// Empty after an error; the helper is of no use then.
    std::optional<QByteArray> probe(const QString &path) {
        const auto until = Clock::now() + maximumDuration.load();
        const QByteArray request = QFile::encodeName(path) + '\0';
        if (::send(_socket.get(), request.constData(), std::size_t(request.size()), MSG_NOSIGNAL) !=
            request.size())
            return std::nullopt;
        quint32 size = 0;
        if (!_read(reinterpret_cast<char *>(&size), sizeof size, until) || size > longestText)
            return std::nullopt;
        QByteArray text(qsizetype(size), '\0');
        if (!_read(text.data(), size, until)) return std::nullopt;
        return text;
    }

  private:
    Helper(KVFileDescriptor socket, std::shared_ptr<KVChild> child)
        : _socket(std::move(socket))
        , _child(std::move(child)) {}

    bool _read(char *bytes, std::size_t size, Clock::time_point until) {
        while (size > 0) {
            const auto rest =
                std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now()).count();
            pollfd input = {_socket.get(), POLLIN, 0};
            const int ready = ::poll(&input, 1, static_cast<int>(std::max<qint64>(rest, 0)));
            if (ready < 0 && errno == EINTR) continue;
            if (ready <= 0) return false;
            const ssize_t count = ::recv(_socket.get(), bytes, size, 0);
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) return false;
            bytes += count;
            size -= std::size_t(count);
        }
        return true;
    }

    KVFileDescriptor _socket;
    std::shared_ptr<KVChild> _child;
};

/// The helpers that have nothing to do, and the number of all.
class Pool {
  public:
    /// Never destroyed: a thread that ends with the process may still probe.
    static Pool &shared() {
        static Pool *pool = new Pool;
        return *pool;
    }

    /// Waits while all helpers are busy. Null if none starts.
    std::unique_ptr<Helper> take() {
        std::unique_lock lock(_mutex);
        _isFree.wait(lock, [this] { return _number < mostHelpers; });
        ++_number;
        std::vector<std::unique_ptr<Helper>> exited = _takeExited();
        std::unique_ptr<Helper> helper;
        if (!_idle.empty()) {
            helper = std::move(_idle.back());
            _idle.pop_back();
        }
        lock.unlock();
        return helper ? std::move(helper) : Helper::start();
    }

    /// Null if the helper is not to be used again.
    void giveBack(std::unique_ptr<Helper> helper) {
        const std::scoped_lock lock(_mutex);
        --_number;
        if (helper) _idle.push_back(std::move(helper));
        _isFree.notify_one();
        if (std::exchange(_isReapingPlanned, true)) return;
        KVMainThread::after(secondsUntilReaping, [this] { _reap(); });
    }

    void endIdle() {
        std::unique_lock lock(_mutex);
        const auto ended = std::exchange(_idle, {});
        lock.unlock();
    }

  private:
    void _reap() {
        std::unique_lock lock(_mutex);
        const auto exited = _takeExited();
        _isReapingPlanned = !_idle.empty();
        if (_isReapingPlanned) KVMainThread::after(secondsUntilReaping, [this] { _reap(); });
        lock.unlock();
    }

    /// With `_mutex` held.
    std::vector<std::unique_ptr<Helper>> _takeExited() {
        std::vector<std::unique_ptr<Helper>> exited;
        for (auto &helper : _idle)
            if (helper->hasExited()) exited.push_back(std::move(helper));
        std::erase(_idle, nullptr);
        return exited;
    }

    std::mutex _mutex;
    std::condition_variable _isFree;
    std::vector<std::unique_ptr<Helper>> _idle;
    int _number = 0; ///< Those that are in use.
    bool _isReapingPlanned = false;
};

} // namespace

std::optional<QByteArray> KVProbeHelper::probe(const QString &path) {
    Pool &pool = Pool::shared();
    auto helper = pool.take();
    auto text = helper ? helper->probe(path) : std::nullopt;
    if (!text) helper.reset();
    pool.giveBack(std::move(helper));
    return text;
}

void KVProbeHelper::endIdleHelpers() {
    Pool::shared().endIdle();
}

void KVProbeHelper::setMaximumDuration(std::chrono::milliseconds duration) {
    maximumDuration = duration;
}
