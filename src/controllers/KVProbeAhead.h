#pragma once

#include "kvcore/KVError.h"

#include <QUrl>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

class KVMediaFile;

/// Looks at files before their turn comes, several at a time, so that whoever takes them one after the other
/// finds the answer ready. Stays a few files ahead and no more: what waits behind a question to the user is
/// looked at when the question is answered.
///
/// `expect` from any thread; `peek`, `take` and `forget` from the one that takes.
class KVProbeAhead {
  public:
    using Result = KVResult<std::shared_ptr<KVMediaFile>>;
    using Probe = std::function<Result(const QUrl &)>;
    class Ticket;

    /// `probe` is called on threads of ours, at most `maximumNumberOfThreads` at once, less those that
    /// `numberOfOthersAtWork` tells of, but at least one. Neither may wait for the thread that destroys us.
    KVProbeAhead(Probe probe, int maximumNumberOfThreads, std::function<int()> numberOfOthersAtWork = {});
    ~KVProbeAhead();
    KVProbeAhead(const KVProbeAhead &) = delete;
    KVProbeAhead &operator=(const KVProbeAhead &) = delete;

    /// The file will be taken, in the order of the calls.
    std::shared_ptr<Ticket> expect(const QUrl &url);

    /// Looks at the file before its turn, unless that has been done, and keeps the result for `take`. Empty
    /// if the file is not a medium. Blocks while ffmpeg runs.
    std::shared_ptr<const KVMediaFile> peek(const std::shared_ptr<Ticket> &ticket);

    /// What the file is: the answer that is ready, as long as the file is the same as then, else a new one.
    Result take(const std::shared_ptr<Ticket> &ticket);

    /// The file's turn is over, taken or not. Every ticket comes here.
    void forget(const std::shared_ptr<Ticket> &ticket);

    /// Begins no further probe; `take` probes by itself from now on.
    void stop();

  private:
    void _run(const std::stop_token &stop);
    void _look(Ticket &ticket, std::unique_lock<std::mutex> &lock);
    bool _hasRoom() const;
    std::shared_ptr<Ticket> _next() const;

    const Probe _probe;
    const std::function<int()> _numberOfOthersAtWork;
    const std::size_t _maximumNumberOfThreads;
    std::mutex _mutex;
    std::condition_variable_any _changed;
    std::deque<std::shared_ptr<Ticket>> _tickets; ///< In the order of their turns.
    std::size_t _numberOfProbes = 0;              ///< That run now.
    std::vector<std::jthread> _threads;
    bool _isStopped = false;
};
