#include "core/doors/KVWindowBusName.h"
#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/KVKalvoraApplication.h"
#include "main_ui/KVScriptingAdaptor.h"
#include "main_ui/KVSingleApplication.h"
#include "platform/KVSignalWatcher.h"

#include <QApplication>
#include <QDir>

#include <chrono>
#include <csignal>
#include <thread>

#include <unistd.h>

namespace {

// Paths are made absolute before the working directory changes.
QList<QUrl> urlsOf(const QStringList &arguments) {
    QList<QUrl> urls;
    for (const QString &argument : arguments)
        urls.append(QUrl::fromUserInput(argument, QDir::currentPath(), QUrl::AssumeLocalFile));
    return urls;
}

// All work has ended or been cancelled. What still hangs now, such as a look at a file on a dead network, is
// not waited for.
void endSoonAtLatest() {
    std::thread([] {
        std::this_thread::sleep_for(std::chrono::seconds(2));
        ::_exit(0);
    }).detach();
}

} // namespace

int main(int argc, char **argv) {
    std::signal(SIGPIPE, SIG_IGN);
    std::weak_ptr<KVKalvoraApplication> running; // main thread
    const KVSignalWatcher signals(
        [&running] {
            if (const auto application = running.lock())
                application->quit();
            else
                QApplication::exit(0);
        },
        [] {});

    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kalvora"));
    QApplication::setDesktopFileName(KVWindowBusName::service);
    QApplication::setQuitOnLastWindowClosed(false);
    KVLocalizationCenter::loadSystemLanguage();

    const QList<QUrl> urls = urlsOf(QApplication::arguments().sliced(1));
    KVSingleApplication single;
    if (single.handOver(urls)) return 0;

    const auto kalvora = KVKalvoraApplication::create();
    running = kalvora;
    new KVScriptingAdaptor(&single, kalvora); // Qt's object tree owns it
    QObject::connect(&single, &KVSingleApplication::activated, &single, [&] { kalvora->bringToFront(); });
    QObject::connect(&single, &KVSingleApplication::filesReceived, &single,
                     [&](const QList<QUrl> &received) { kalvora->openFiles(received); });
    kalvora->launch(urls);
    const int status = QApplication::exec();
    endSoonAtLatest();
    return status;
}
