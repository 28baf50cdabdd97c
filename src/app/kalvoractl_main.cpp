#include "cli/KVCommandLine.h"

#include <QCoreApplication>

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <langinfo.h>

namespace {

/// File names are UTF-8, whatever the environment says of texts.
void useUTF8() {
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(::nl_langinfo(CODESET), "UTF-8") != 0) ::setenv("LC_ALL", "C.UTF-8", 1);
    std::setlocale(LC_CTYPE, "");
}

} // namespace

int main(int argc, char **argv) {
    // A reader that has seen enough is no reason to die with conversions half done.
    std::signal(SIGPIPE, SIG_IGN);
    useUTF8();

    QList<QByteArray> words;
    for (int i = 1; i < argc; ++i)
        words.append(argv[i]);
    KVConsole console;
    KVCommandLine commandLine(console);
    if (const auto status = commandLine.answerAtOnce(words)) {
        console.flushResults();
        return static_cast<int>(*status);
    }

    // The words are read: nothing of them is meant for the framework.
    int ownArgumentCount = 1;
    QCoreApplication application(ownArgumentCount, argv);
    return static_cast<int>(commandLine.run());
}
