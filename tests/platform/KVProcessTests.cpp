#include "platform/KVProcess.h"
#include "support/KVTestCase.h"

#include <QFileInfo>

#include <cerrno>
#include <csignal>
#include <future>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Sees the end of a process that need not be our own child.
class Watched {
  public:
    explicit Watched(pid_t process)
        : _descriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0))) {}
    bool isKnown() const { return _descriptor.isValid(); }
    bool endsWithin(std::chrono::milliseconds time) const {
        pollfd process = {_descriptor.get(), POLLIN, 0};
        return ::poll(&process, 1, static_cast<int>(time.count())) == 1;
    }
    void kill() const { ::syscall(SYS_pidfd_send_signal, _descriptor.get(), SIGKILL, nullptr, 0); }

  private:
    KVFileDescriptor _descriptor;
};

constexpr std::chrono::milliseconds longTime(20'000);

/// The letter by which the system tells what a process does: S, R, T (stopped), ...
QString stateOf(pid_t process) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).section(") ", 1).first(1)
                                          : QString();
}

bool reachesState(pid_t process, const QString &states) {
    for (int attempt = 0; attempt < 2000; ++attempt) {
        if (states.contains(stateOf(process))) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

qsizetype entryCount(const char *folder) {
    return QDir(QString::fromUtf8(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

} // namespace

class KVProcessTest : public KVTestCase {
  protected:
    using Stream = KVProcess::Stream;

    static void prepareShell(KVProcess &process, const QString &script) {
        process.setLaunchPath("/bin/sh");
        process.setArguments({"-c", script});
    }

    static QByteArray readAll(const KVProcess &process, KVFileHandle &handle) {
        QByteArray all;
        while (process.isRunning())
            all += handle.availableData();
        return all;
    }

    /// What the script prints to standard output, with the child gone afterwards.
    static QByteArray outputOf(KVProcess &process) {
        const auto handle = process.setStandardOutput(Stream::pipe);
        EXPECT_TRUE(process.launch());
        const QByteArray output = readAll(process, *handle);
        process.waitUntilExit();
        return output;
    }
    static QByteArray outputOf(const QString &script) {
        KVProcess process;
        prepareShell(process, script);
        return outputOf(process);
    }

    /// Starts a script that prints a number in its first line and answers that.
    static pid_t launchAndReadNumber(KVProcess &process, const QString &script) {
        prepareShell(process, script);
        const auto handle = process.setStandardOutput(Stream::pipe);
        EXPECT_TRUE(process.launch());
        return handle->availableData().trimmed().toInt();
    }
};

TEST_F(KVProcessTest, ReadsAllThatAChattyChildWrites) {
    KVProcess process;
    prepareShell(process, "head -c 5000000 /dev/zero; echo end; exit 3");
    const QByteArray output = outputOf(process);
    EXPECT_EQ(output.size(), 5'000'004);
    EXPECT_TRUE(output.endsWith("\0end\n"));
    EXPECT_EQ(process.terminationStatus(), 3);
    EXPECT_FALSE(process.isRunning());
}

TEST_F(KVProcessTest, CountsAsRunningUntilAllIsRead) {
    KVProcess process;
    prepareShell(process, "echo late >&2");
    const auto handle = process.setStandardError(Stream::pipe);
    ASSERT_TRUE(process.launch());
    process.waitUntilExit();
    EXPECT_TRUE(process.isRunning());
    EXPECT_EQ(handle->availableData(), "late\n");
    EXPECT_FALSE(process.isRunning());
    EXPECT_EQ(handle->availableData(), "");
}

TEST_F(KVProcessTest, DoesNotWaitForAPipeThatNobodyReads) {
    KVProcess process;
    prepareShell(process, "echo unread; echo read >&2");
    process.setStandardOutput(Stream::pipe); // let go at once
    const auto handle = process.setStandardError(Stream::pipe);
    ASSERT_TRUE(process.launch());
    EXPECT_EQ(readAll(process, *handle), "read\n");
    process.waitUntilExit();
    EXPECT_EQ(process.terminationStatus(), 0);
}

TEST_F(KVProcessTest, IsNotHeldUpByAProcessThatTheChildLeavesBehind) {
    KVProcess process;
    prepareShell(process, "sleep 600 & echo $!");
    const QByteArray output = outputOf(process);
    const Watched leftBehind(output.trimmed().toInt());
    ASSERT_TRUE(leftBehind.isKnown());
    EXPECT_FALSE(leftBehind.endsWithin(std::chrono::milliseconds(0)));
    leftBehind.kill();
}

TEST_F(KVProcessTest, DoesNotSpinWhenTheChildClosesItsOutputEarly) {
    KVProcess process;
    prepareShell(process, "exec >&-; sleep 0.3; exit 4");
    const auto handle = process.setStandardOutput(Stream::pipe);
    ASSERT_TRUE(process.launch());
    int reads = 0;
    for (; process.isRunning(); ++reads)
        EXPECT_EQ(handle->availableData(), "");
    EXPECT_EQ(reads, 1);
    EXPECT_EQ(process.terminationStatus(), 4);
}

TEST_F(KVProcessTest, GivesTheChildTheEnvironmentAndTheArgumentsAsTheyAre) {
    KVProcess process;
    process.setLaunchPath("/usr/bin/env");
    process.setEnvironment({{"FONTCONFIG_PATH", QString::fromUtf8("/a b/ü")}});
    EXPECT_EQ(outputOf(process), "FONTCONFIG_PATH=/a b/ü\n");

    qputenv("KV_INHERITED", "yes");
    EXPECT_EQ(outputOf("echo $KV_INHERITED"), "yes\n");

    KVProcess echo;
    echo.setLaunchPath("/usr/bin/printf");
    echo.setArguments({"[%s]", "", "a b", "'\"$x", "-n", "line\nfeed"});
    EXPECT_EQ(outputOf(echo), "[][a b]['\"$x][-n][line\nfeed]");
}

TEST_F(KVProcessTest, LearnsTheStatusThoughTheProgramWasStartedWithEndsOfChildrenIgnored) {
    std::signal(SIGCHLD, SIG_IGN);
    KVProcess process;
    prepareShell(process, "exit 3");
    ASSERT_TRUE(process.launch());
    process.waitUntilExit();
    EXPECT_EQ(process.terminationStatus(), 3);
}

TEST_F(KVProcessTest, StartsTheChildWithNothingOfOursButItsStreams) {
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGINT);
    ASSERT_EQ(::pthread_sigmask(SIG_BLOCK, &blocked, nullptr), 0);
    const KVFileDescriptor leak(::open("/dev/null", O_RDONLY)); // deliberately not close-on-exec
    KVProcess sibling;
    prepareShell(sibling, "exec sleep 600");
    const auto siblingHandle = sibling.setStandardError(Stream::pipe);
    ASSERT_TRUE(sibling.launch());

    EXPECT_EQ(outputOf("grep -E '^Sig(Blk|Ign)' /proc/self/status"),
              "SigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n");
    EXPECT_EQ(outputOf("readlink /proc/self/fd/0"), "/dev/null\n");
    EXPECT_EQ(outputOf("exec ls /proc/self/fd"), "0\n1\n2\n3\n") << "3 is the listed folder itself";
    const QList<QByteArray> status = outputOf("exec cat /proc/self/stat").split(' ');
    EXPECT_EQ(status.value(0), status.value(4)) << "not in a process group of its own";
}

TEST_F(KVProcessTest, SilencesStreams) {
    KVProcess process;
    prepareShell(process, "o=$(readlink /proc/$$/fd/1); e=$(readlink /proc/$$/fd/2); echo $o $e > $OUT");
    process.setEnvironment({{"OUT", path("out")}, {"PATH", "/usr/bin:/bin"}});
    EXPECT_EQ(process.setStandardOutput(Stream::nullDevice), nullptr);
    EXPECT_EQ(process.setStandardError(Stream::nullDevice), nullptr);
    ASSERT_TRUE(process.launch());
    process.waitUntilExit();
    EXPECT_EQ(read(path("out")), "/dev/null /dev/null\n");
}

TEST_F(KVProcessTest, TellsWhyAProgramCannotBeStarted) {
    const QString text = write("text", "no program");
    QFile::setPermissions(text, QFile::ReadOwner | QFile::ExeOwner);
    const QString plain = write("plain", "#!/bin/sh\n");
    const std::vector<std::pair<QString, int>> rows{
        {path("missing"), ENOENT}, {text, ENOEXEC}, {plain, EACCES}, {path(), EACCES}, {"", ENOENT}};
    for (const auto &[program, problem] : rows) {
        KVProcess process;
        process.setLaunchPath(program);
        const auto handle = process.setStandardError(Stream::pipe);
        const auto launched = process.launch();
        ASSERT_FALSE(launched) << program.toStdString();
        EXPECT_EQ(launched.error().domain, KVPOSIXErrorDomain);
        EXPECT_EQ(launched.error().code, problem) << program.toStdString();
        EXPECT_FALSE(process.isRunning());
        EXPECT_EQ(handle->availableData(), "");
        process.waitUntilExit();
        EXPECT_EQ(process.terminationStatus(), 127);
        EXPECT_FALSE(process.interrupt());
    }
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(KVProcessTest, StopsContinuesAndInterruptsTheChildWhileAnotherThreadReads) {
    KVProcess process;
    EXPECT_FALSE(process.suspend()) << "nothing is launched yet";
    std::promise<pid_t> started;
    std::jthread worker([&] {
        const pid_t child = launchAndReadNumber(process, "echo $$; exec sleep 600");
        started.set_value(child);
        process.waitUntilExit();
    });
    const pid_t child = started.get_future().get();
    EXPECT_TRUE(process.suspend());
    EXPECT_TRUE(reachesState(child, "T"));
    EXPECT_TRUE(process.isRunning());
    EXPECT_TRUE(process.resume());
    EXPECT_TRUE(reachesState(child, "SR"));
    EXPECT_EQ(process.terminationStatus(), 0);
    EXPECT_TRUE(process.interrupt());
    worker.join();
    EXPECT_EQ(process.terminationStatus(), 128 + SIGINT);
    EXPECT_FALSE(process.isRunning());
    EXPECT_FALSE(process.suspend());
    EXPECT_FALSE(process.resume());
    EXPECT_FALSE(process.kill());
}

TEST_F(KVProcessTest, WakesABlockedReaderWhenTheChildIsKilled) {
    KVProcess process;
    std::promise<void> launched;
    auto output = std::async(std::launch::async, [&] {
        prepareShell(process, "exec sleep 600");
        const auto handle = process.setStandardOutput(Stream::pipe);
        EXPECT_TRUE(process.launch());
        launched.set_value();
        const QByteArray all = readAll(process, *handle);
        process.waitUntilExit();
        return all;
    });
    launched.get_future().get();
    EXPECT_TRUE(process.suspend());
    EXPECT_TRUE(process.kill());
    EXPECT_EQ(output.get(), "");
    EXPECT_EQ(process.terminationStatus(), 128 + SIGKILL);
}

TEST_F(KVProcessTest, EndsAndReapsTheChildWithTheObject) {
    std::shared_ptr<KVFileHandle> handle;
    pid_t child = 0;
    {
        KVProcess process;
        prepareShell(process, "echo $$; exec sleep 600");
        handle = process.setStandardOutput(Stream::pipe);
        ASSERT_TRUE(process.launch());
        child = handle->availableData().trimmed().toInt();
    }
    EXPECT_FALSE(QFileInfo::exists(QStringLiteral("/proc/%1").arg(child)));
    EXPECT_EQ(handle->availableData(), "") << "a handle may outlive its process";
}

TEST_F(KVProcessTest, DoesNotLetAChildOutliveAProgramThatIsKilled) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t program = ::fork();
    if (program == 0) {
        KVProcess process;
        const pid_t child = launchAndReadNumber(process, "echo $$; exec sleep 600");
        if (::write(ends[1], &child, sizeof child) == sizeof child) ::pause();
        ::_exit(1);
    }
    pid_t child = 0;
    ASSERT_EQ(::read(ends[0], &child, sizeof child), static_cast<ssize_t>(sizeof child));
    const Watched watched(child);
    ASSERT_TRUE(watched.isKnown());
    EXPECT_FALSE(watched.endsWithin(std::chrono::milliseconds(50)));
    ::kill(program, SIGKILL);
    EXPECT_EQ(::waitpid(program, nullptr, 0), program);
    EXPECT_TRUE(watched.endsWithin(longTime));
    watched.kill(); // should it have failed
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(KVProcessTest, LeavesNothingBehindAfterAThousandChildren) {
    EXPECT_EQ(outputOf("echo x"), "x\n"); // what the first one sets up for good does not count
    const qsizetype descriptors = entryCount("/proc/self/fd");
    const qsizetype threads = entryCount("/proc/self/task");
    for (int count = 0; count < 1000; ++count) {
        KVProcess process;
        process.setLaunchPath("/bin/true");
        const auto handle = process.setStandardError(Stream::pipe);
        ASSERT_TRUE(process.launch());
        ASSERT_EQ(readAll(process, *handle), "");
        process.waitUntilExit();
        ASSERT_EQ(process.terminationStatus(), 0);
    }
    EXPECT_EQ(entryCount("/proc/self/fd"), descriptors);
    EXPECT_EQ(entryCount("/proc/self/task"), threads);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}
