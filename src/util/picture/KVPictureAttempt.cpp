#include "util/picture/KVPictureAttempt.h"

#include "util/picture/KVVipsLibrary.h"

#include <vips/vips8>

#include <mutex>

namespace {

thread_local QString firstWarning;

/// Counts the attempts of the program, to see which of them overlap.
struct Attempts {
    std::mutex mutex; // never held while something runs
    int running = 0;
    quint64 begun = 0;

    static Attempts &shared() {
        static Attempts &attempts = *new Attempts; // workers may outlast the end of the program
        return attempts;
    }
};

class Attempt {
  public:
    Attempt() {
        Attempts &all = Attempts::shared();
        const std::scoped_lock lock(all.mutex);
        _beganAlone = all.running++ == 0;
        _number = ++all.begun;
        if (_beganAlone) KVVipsLibrary::takeErrorText(); // of what worked in the end
        firstWarning.clear();
    }
    ~Attempt() {
        Attempts &all = Attempts::shared();
        const std::scoped_lock lock(all.mutex);
        --all.running;
    }
    Attempt(const Attempt &) = delete;
    Attempt &operator=(const Attempt &) = delete;

    /// Why this attempt failed. Empty if another one ran meanwhile.
    QString reason() const {
        const QString warning = firstWarning;
        Attempts &all = Attempts::shared();
        const std::scoped_lock lock(all.mutex);
        if (!_beganAlone || all.begun != _number) return {};
        QString text = KVVipsLibrary::takeErrorText();
        if (!text.isEmpty()) return text;
        return warning.isEmpty() ? QStringLiteral("The file is damaged.") : warning;
    }

  private:
    bool _beganAlone = false;
    quint64 _number = 0;
};

/// Its reason is empty if another attempt ran meanwhile.
std::optional<QString> failureOfAttempt(const std::function<void()> &attempt) {
    const Attempt present;
    try {
        attempt();
        return std::nullopt;
    } catch (const vips::VError &) {
        return present.reason();
    }
}

} // namespace

std::optional<QString> KVPictureAttempt::failure(const std::function<void()> &attempt,
                                                 const std::function<QString()> &reasonElsewhere) {
    auto reason = failureOfAttempt(attempt);
    if (!reason || !reason->isEmpty()) return reason;
    if (reasonElsewhere) reason = reasonElsewhere();
    return reason->isEmpty() ? QStringLiteral("The image library cannot process it.") : reason;
}

void KVPictureAttempt::noteWarning(const QString &text) {
    if (firstWarning.isEmpty()) firstWarning = text;
}
