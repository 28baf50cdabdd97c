#include "platform/KVProcess.h"

#include "kvcore/KVFatalError.h"
#include "platform/KVPipe.h"

#include <csignal>
#include <mutex>
#include <utility>

namespace {

/// What a caller holds of a pipe.
class PipeHandle : public KVFileHandle {
  public:
    explicit PipeHandle(std::shared_ptr<KVPipe> pipe)
        : _pipe(std::move(pipe)) {}
    QByteArray availableData() override { return _pipe->read(); }

  private:
    std::shared_ptr<KVPipe> _pipe;
};

/// Where one of the output streams goes. A handle that the caller has let go is not waited for, but its pipe
/// stays, so that the child can still write.
struct Wiring {
    KVProcess::Stream stream = KVProcess::Stream::inherit;
    std::shared_ptr<KVPipe> pipe;
    std::weak_ptr<KVFileHandle> handle;

    std::shared_ptr<KVFileHandle> set(KVProcess::Stream newStream) {
        *this = {};
        stream = newStream;
        if (stream != KVProcess::Stream::pipe) return nullptr;
        auto made = KVPipe::create();
        if (!made) KVFatalError(made.error().reason);
        pipe = *made;
        auto reading = std::make_shared<PipeHandle>(pipe);
        handle = reading;
        return reading;
    }

    bool isSilenced() const { return stream == KVProcess::Stream::nullDevice; }
    int writeEnd() const { return pipe ? pipe->writeEnd() : -1; }
    bool hasUnreadBytes() const { return !handle.expired() && pipe->hasUnreadBytes(); }
    void setChild(const std::shared_ptr<KVChild> &child) const {
        if (pipe) pipe->setChild(child);
    }
};

QList<QByteArray> encoded(const QStringList &texts) {
    QList<QByteArray> result;
    for (const QString &text : texts)
        result.append(text.toUtf8());
    return result;
}

QList<QByteArray> encoded(const QMap<QString, QString> &environment) {
    QList<QByteArray> result;
    for (auto entry = environment.begin(); entry != environment.end(); ++entry)
        result.append((entry.key() + "=" + entry.value()).toUtf8());
    return result;
}

} // namespace

struct KVProcess::Private {
    mutable std::mutex mutex; // not held while anything waits for the child
    QString launchPath;
    QStringList arguments;
    std::optional<QMap<QString, QString>> environment;
    Wiring output;
    Wiring error;
    bool isLaunched = false;
    bool hasLaunchFailed = false;
    std::shared_ptr<KVChild> child;

    std::shared_ptr<KVChild> runningChild() const {
        const std::scoped_lock lock(mutex);
        return child;
    }
    bool send(int signal) const {
        const auto target = runningChild();
        return target && target->send(signal);
    }
    KVChildPlan plan() const;
};

KVChildPlan KVProcess::Private::plan() const {
    KVChildPlan plan;
    plan.path = launchPath.toUtf8();
    plan.arguments = encoded(arguments);
    if (environment) plan.environment = encoded(*environment);
    plan.standardOutput = output.writeEnd();
    plan.standardError = error.writeEnd();
    plan.silencesOutput = output.isSilenced();
    plan.silencesError = error.isSilenced();
    return plan;
}

KVProcess::KVProcess()
    : _p(std::make_unique<Private>()) {}

KVProcess::~KVProcess() {
    kill();
    waitUntilExit();
}

void KVProcess::setLaunchPath(const QString &path) {
    _p->launchPath = path;
}

QString KVProcess::launchPath() const {
    return _p->launchPath;
}

void KVProcess::setArguments(const QStringList &arguments) {
    _p->arguments = arguments;
}

QStringList KVProcess::arguments() const {
    return _p->arguments;
}

void KVProcess::setEnvironment(const QMap<QString, QString> &environment) {
    _p->environment = environment;
}

std::optional<QMap<QString, QString>> KVProcess::environment() const {
    return _p->environment;
}

std::shared_ptr<KVFileHandle> KVProcess::setStandardOutput(Stream stream) {
    const std::scoped_lock lock(_p->mutex);
    return _p->output.set(stream);
}

std::shared_ptr<KVFileHandle> KVProcess::setStandardError(Stream stream) {
    const std::scoped_lock lock(_p->mutex);
    return _p->error.set(stream);
}

KVResult<void> KVProcess::launch() {
    const std::scoped_lock lock(_p->mutex);
    if (std::exchange(_p->isLaunched, true)) KVFatalError("A process is launched once.");
    auto started = KVChild::start(_p->plan());
    if (started) _p->child = *started;
    _p->output.setChild(_p->child);
    _p->error.setChild(_p->child);
    if (started) return {};
    _p->hasLaunchFailed = true;
    return tl::unexpected(started.error());
}

bool KVProcess::isRunning() const {
    const std::scoped_lock lock(_p->mutex);
    if (!_p->child) return false;
    return !_p->child->hasExited() || _p->output.hasUnreadBytes() || _p->error.hasUnreadBytes();
}

void KVProcess::waitUntilExit() {
    if (const auto child = _p->runningChild()) child->waitUntilExit();
}

int KVProcess::terminationStatus() const {
    constexpr int notStarted = 127;
    const std::scoped_lock lock(_p->mutex);
    if (_p->hasLaunchFailed) return notStarted;
    return _p->child ? _p->child->status() : 0;
}

bool KVProcess::suspend() {
    return _p->send(SIGSTOP);
}

bool KVProcess::resume() {
    return _p->send(SIGCONT);
}

bool KVProcess::interrupt() {
    return _p->send(SIGINT);
}

bool KVProcess::kill() {
    return _p->send(SIGKILL);
}
