#include "util/picture/KVPictureAttempt.h"

#include "util/picture/KVVipsLibrary.h"

#include <vips/vips8>

#include <condition_variable>
#include <mutex>

namespace {

/// Who is at work. While a failure has not been looked at, nobody begins: the library's text stays as it is.
class Attempts {
  public:
    static Attempts &shared() {
        static Attempts &attempts = *new Attempts; // workers may outlast the end of the program
        return attempts;
    }

    /// Answers the number of failures until now.
    int begin() {
        std::unique_lock lock(_mutex);
        _changed.wait(lock, [this] { return _unanswered == 0; });
        ++_running;
        return _failures;
    }

    void end(bool hasFailed) {
        const std::scoped_lock lock(_mutex);
        --_running;
        if (hasFailed) {
            ++_failures;
            ++_unanswered;
        } else if (_running == 0 && _unanswered == 0) {
            KVVipsLibrary::takeErrorText(); // of what went well in the end
        }
        _changed.notify_all();
    }

    /// For one that has failed. Answers the number of failures until now, when nobody is at work.
    int beginAlone() {
        std::unique_lock lock(_mutex);
        _changed.wait(lock, [this] { return _running == 0 && !_isOneAlone; });
        _isOneAlone = true;
        return _failures;
    }

    void endAlone() {
        const std::scoped_lock lock(_mutex);
        _isOneAlone = false;
        --_unanswered;
        _changed.notify_all();
    }

  private:
    std::mutex _mutex;
    std::condition_variable _changed;
    int _running = 0;
    int _failures = 0;
    int _unanswered = 0; ///< Failures whose text has not been taken.
    bool _isOneAlone = false;
};

thread_local QString firstWarning;

/// Why the attempt on this thread has failed; nobody else is at work.
QString takeReason() {
    QString text = KVVipsLibrary::takeErrorText();
    if (!text.isEmpty()) return text;
    return firstWarning.isEmpty() ? QStringLiteral("The file is damaged.") : firstWarning;
}

class Attempt {
  public:
    Attempt()
        : failuresBefore(Attempts::shared().begin()) {
        firstWarning.clear();
    }
    ~Attempt() { Attempts::shared().end(hasFailed); }
    Attempt(const Attempt &) = delete;
    Attempt &operator=(const Attempt &) = delete;

    const int failuresBefore;
    bool hasFailed = false;
};

class AloneTurn {
  public:
    AloneTurn()
        : failures(Attempts::shared().beginAlone()) {}
    ~AloneTurn() { Attempts::shared().endAlone(); }
    AloneTurn(const AloneTurn &) = delete;
    AloneTurn &operator=(const AloneTurn &) = delete;

    const int failures;
};

/// The failures before this one, if it is one.
std::optional<int> failuresBefore(const std::function<void()> &attempt) {
    Attempt present;
    try {
        attempt();
        return std::nullopt;
    } catch (const vips::VError &) {
        present.hasFailed = true;
        return present.failuresBefore;
    }
}

} // namespace

std::optional<QString> KVPictureAttempt::failure(const std::function<void()> &attempt) {
    const auto before = failuresBefore(attempt);
    if (!before) return std::nullopt;
    const AloneTurn turn;
    if (turn.failures == *before + 1) return takeReason();
    KVVipsLibrary::takeErrorText();
    firstWarning.clear();
    try {
        attempt();
        return std::nullopt;
    } catch (const vips::VError &) {
        return takeReason();
    }
}

void KVPictureAttempt::noteWarning(const QString &text) {
    if (firstWarning.isEmpty()) firstWarning = text;
}
