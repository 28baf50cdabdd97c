#include "cli/KVCommandLine.h"

#include <QCoreApplication>

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <langinfo.h>

namespace {

/// File names are UTF-8, whatever the environment says of texts.
void useUTF8() {
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(::nl_langinfo(CODESET), "UTF-8") != 0) ::setenv("LC_ALL", "C.UTF-8", 1);
    std::setlocale(LC_CTYPE, "");
}

/// The next file that is opened would take the place of a closed standard stream, and results be written into
/// it. What stands there instead takes nothing, so that lost results are noticed.
void occupyStandardStreams() {
    for (const int descriptor : {0, 1, 2})
        if (::fcntl(descriptor, F_GETFD) < 0) (void)::open("/dev/null", O_RDONLY);
}

} // namespace

int main(int argc, char **argv) {
    occupyStandardStreams();
    // A reader that has seen enough is no reason to die with conversions half done.
    std::signal(SIGPIPE, SIG_IGN);
    useUTF8();

    QList<QByteArray> words;
    for (int i = 1; i < argc; ++i)
        words.append(argv[i]);
    KVConsole console;
    KVCommandLine commandLine(console);
    if (const auto status = commandLine.answerAtOnce(words)) {
        const bool isAllWritten = console.flushResults();
        return static_cast<int>(isAllWritten ? *status : KVExitStatus::failure);
    }

    // The words are read: nothing of them is meant for the framework.
    int ownArgumentCount = 1;
    QCoreApplication application(ownArgumentCount, argv);
    return static_cast<int>(commandLine.run());
}
