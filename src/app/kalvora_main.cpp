#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/KVKalvoraApplication.h"

#include <QApplication>
#include <QDir>
#include <QIcon>

namespace {

// Paths are made absolute before the working directory changes.
QList<QUrl> urlsOf(const QStringList &arguments) {
    QList<QUrl> urls;
    for (const QString &argument : arguments)
        urls.append(QUrl::fromUserInput(argument, QDir::currentPath(), QUrl::AssumeLocalFile));
    return urls;
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kalvora"));
    QApplication::setDesktopFileName(KVSingleApplication::serviceName);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/kalvora.svg")));
    QApplication::setQuitOnLastWindowClosed(false);
    KVLocalizationCenter::loadSystemLanguage();

    const QList<QUrl> urls = urlsOf(QApplication::arguments().sliced(1));
    KVSingleApplication single;
    if (single.handOver(urls)) return 0;

    const auto kalvora = KVKalvoraApplication::create();
    QObject::connect(&single, &KVSingleApplication::activated, &single, [&] { kalvora->bringToFront(); });
    QObject::connect(&single, &KVSingleApplication::filesReceived, &single,
                     [&](const QList<QUrl> &received) { kalvora->openFiles(received); });
    kalvora->launch(urls);
    return QApplication::exec();
}
