#include "controllers/KVProbeAhead.h"

#include "video_info/media_file/KVMediaFile.h"

#include <QFile>

#include <algorithm>
#include <optional>
#include <tuple>

#include <sys/stat.h>

namespace {

/// How many files each thread may be ahead.
constexpr std::size_t filesAheadPerThread = 4;

/// What changes when a file is replaced or written to; nothing where there is none.
using Signature = std::optional<std::tuple<quint64, quint64, qint64, qint64, qint64>>;

Signature signatureOf(const QUrl &url) {
    struct stat status {};
    if (::stat(QFile::encodeName(url.toLocalFile()).constData(), &status) != 0) return std::nullopt;
    return std::tuple<quint64, quint64, qint64, qint64, qint64>{
        status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

/// A URL of its own: the copies of Qt's values share what two threads must not.
QUrl separateCopy(const QUrl &url) {
    return QUrl::fromLocalFile(QString(url.toLocalFile().constData(), url.toLocalFile().size()));
}

} // namespace

class KVProbeAhead::Ticket {
  public:
    enum class State { waiting, probing, ready, theTakers };

    explicit Ticket(const QUrl &fileURL)
        : url(separateCopy(fileURL)) {}

    const QUrl url;
    State state = State::waiting; ///< Guarded by the mutex, as is the rest while `probing`.
    Signature signature;
    std::optional<Result> result;
};

KVProbeAhead::KVProbeAhead(Probe probe, int maximumNumberOfThreads, std::function<int()> numberOfOthersAtWork)
    : _probe(std::move(probe))
    , _numberOfOthersAtWork(std::move(numberOfOthersAtWork))
    , _maximumNumberOfThreads(static_cast<std::size_t>(std::max(maximumNumberOfThreads, 1))) {}

KVProbeAhead::~KVProbeAhead() {
    stop();
    for (std::jthread &thread : _threads)
        thread.request_stop();
}

std::shared_ptr<KVProbeAhead::Ticket> KVProbeAhead::expect(const QUrl &url) {
    auto ticket = std::make_shared<Ticket>(url);
    const std::scoped_lock lock(_mutex);
    if (_isStopped) return ticket;
    _tickets.push_back(ticket);
    if (_threads.size() < _maximumNumberOfThreads)
        _threads.emplace_back([this](const std::stop_token &stop) { _run(stop); });
    _changed.notify_all();
    return ticket;
}

std::shared_ptr<const KVMediaFile> KVProbeAhead::peek(const std::shared_ptr<Ticket> &ticket) {
    std::unique_lock lock(_mutex);
    if (ticket->state == Ticket::State::waiting) _look(*ticket, lock);
    _changed.wait(lock, [&] { return ticket->state != Ticket::State::probing; });
    return ticket->result ? ticket->result->value_or(nullptr) : nullptr;
}

KVProbeAhead::Result KVProbeAhead::take(const std::shared_ptr<Ticket> &ticket) {
    std::unique_lock lock(_mutex);
    _changed.wait(lock, [&] { return ticket->state != Ticket::State::probing; });
    ticket->state = Ticket::State::theTakers;
    auto result = std::exchange(ticket->result, std::nullopt);
    lock.unlock();
    const bool isStillTrue = result && ticket->signature && ticket->signature == signatureOf(ticket->url);
    return isStillTrue ? std::move(*result) : _probe(separateCopy(ticket->url));
}

void KVProbeAhead::forget(const std::shared_ptr<Ticket> &ticket) {
    const std::scoped_lock lock(_mutex);
    if (const auto place = std::ranges::find(_tickets, ticket); place != _tickets.end())
        _tickets.erase(place);
    _changed.notify_all();
}

void KVProbeAhead::stop() {
    const std::scoped_lock lock(_mutex);
    _isStopped = true;
    _tickets.clear();
}

/// Needs the mutex, as does the next one. What looks ahead must not slow down what has begun.
bool KVProbeAhead::_hasRoom() const {
    const int others = _numberOfOthersAtWork ? _numberOfOthersAtWork() : 0;
    const auto taken = _numberOfProbes + static_cast<std::size_t>(others);
    return _numberOfProbes == 0 || taken < _maximumNumberOfThreads;
}

std::shared_ptr<KVProbeAhead::Ticket> KVProbeAhead::_next() const {
    const std::size_t reach = std::min(_tickets.size(), filesAheadPerThread * _maximumNumberOfThreads);
    const auto end = _tickets.begin() + static_cast<std::ptrdiff_t>(reach);
    const auto found = std::find_if(
        _tickets.begin(), end, [](const auto &ticket) { return ticket->state == Ticket::State::waiting; });
    return found == end ? nullptr : *found;
}

void KVProbeAhead::_run(const std::stop_token &stop) {
    std::unique_lock lock(_mutex);
    std::shared_ptr<Ticket> ticket;
    while (_changed.wait(lock, stop, [&] { return _hasRoom() && (ticket = _next()) != nullptr; }) &&
           !stop.stop_requested()) {
        _look(*ticket, lock);
        ticket.reset();
    }
}

/// Probes the file without the lock and stores the result with it.
void KVProbeAhead::_look(Ticket &ticket, std::unique_lock<std::mutex> &lock) {
    ticket.state = Ticket::State::probing;
    ++_numberOfProbes;
    lock.unlock();
    auto signature = signatureOf(ticket.url);
    auto result = _probe(separateCopy(ticket.url));
    lock.lock();
    ticket.signature = signature;
    ticket.result = std::move(result);
    ticket.state = Ticket::State::ready;
    --_numberOfProbes;
    _changed.notify_all();
}
