#pragma once

#include "kvcore/KVError.h"
#include "platform/KVFileHandle.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

/// One child process with what the engine needs of it. Standard input is the null device. Every descriptor is
/// close-on-exec, so no child inherits another's pipe. Signals go through a pidfd and never reach a reused
/// number. The exit status is reaped once. The child does not outlive the program, not even when that is
/// killed; it is tied to the thread that launched it, so that thread has to stay until the child has exited
/// (`waitUntilExit`).
///
/// The setters, `launch` and reading belong to one thread; `isRunning`, `waitUntilExit`, `terminationStatus`,
/// `suspend`, `resume`, `interrupt` and `kill` may be called from any thread once `launch` has returned or at
/// any time before.
class KVProcess {
  public:
    /// Where one of the child's output streams goes.
    enum class Stream { inherit, nullDevice, pipe };

    KVProcess();
    ~KVProcess(); ///< A child that still runs is killed and reaped.
    KVProcess(const KVProcess &) = delete;
    KVProcess &operator=(const KVProcess &) = delete;

    void setLaunchPath(const QString &path);
    QString launchPath() const;
    void setArguments(const QStringList &arguments);
    QStringList arguments() const;
    /// The whole environment of the child; without a call it gets the program's own.
    void setEnvironment(const QMap<QString, QString> &environment);
    std::optional<QMap<QString, QString>> environment() const;

    /// With `pipe` a new pipe is made, whose read end is answered; otherwise nothing is answered.
    std::shared_ptr<KVFileHandle> setStandardOutput(Stream stream);
    std::shared_ptr<KVFileHandle> setStandardError(Stream stream);

    /// Starts the child. A program that cannot be started (missing, not executable) is an error of
    /// KVPOSIXErrorDomain; the process then counts as exited with status 127.
    KVResult<void> launch();

    /// True between a successful launch and the exit. An exit shows only when nothing is left unread in the
    /// child's pipe, so that a reader which asks before every read gets all of the output.
    bool isRunning() const;

    /// Blocks until the child has exited; returns at once if none was started.
    void waitUntilExit();

    /// The exit code, or 128 + the signal that ended the child; 0 before the exit.
    int terminationStatus() const;

    /// Stops the child's execution without ending it. True if the signal was delivered.
    bool suspend();
    bool resume();
    /// Asks the child to stop in an orderly way, as the interactive interrupt does.
    bool interrupt();
    /// Ends the child at once.
    bool kill();

  private:
    struct Private;
    std::unique_ptr<Private> _p;
};
