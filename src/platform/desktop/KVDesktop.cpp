#include "platform/desktop/KVDesktop.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <canberra.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>

namespace {

const QString desktopFile = "com.brenholt.Kalvora.desktop";

// Starts a call and forgets it.
void send(const QDBusConnection &bus, const QDBusMessage &message) {
    if (bus.isConnected()) bus.asyncCall(message);
}

// The zone's name, such as "Europe/Berlin".
QString systemTimeZone() {
    const QString target = QFileInfo(QStringLiteral("/etc/localtime")).canonicalFilePath();
    const qsizetype begin = target.indexOf(QStringLiteral("/zoneinfo/"));
    return begin < 0 ? QString() : target.sliced(begin + 10);
}

// The country of a zone by the time zone database's own table: "DE\t+5230+01322\tEurope/Berlin".
QString countryOfTimeZone(const QString &zone) {
    QFile table(QStringLiteral("/usr/share/zoneinfo/zone.tab"));
    if (zone.isEmpty() || !table.open(QIODevice::ReadOnly)) return {};
    for (const QByteArray &line : table.readAll().split('\n')) {
        const auto columns = line.split('\t');
        if (columns.size() >= 3 && columns.at(2) == zone.toUtf8())
            return QString::fromLatin1(columns.first());
    }
    return {};
}

} // namespace

class KVDesktop::Sound {
  public:
    Sound() {
        if (ca_context_create(&_context) != CA_SUCCESS) _context = nullptr;
    }
    ~Sound() {
        if (_context) ca_context_destroy(_context);
    }
    Sound(const Sound &) = delete;
    Sound &operator=(const Sound &) = delete;

    void playComplete() {
        if (_context) ca_context_play(_context, 0, CA_PROP_EVENT_ID, "complete", nullptr);
    }

  private:
    ca_context *_context = nullptr;
};

KVDesktop::KVDesktop() = default;

KVDesktop::~KVDesktop() {
    setKeepsAwake(false);
}

void KVDesktop::postNotification(const QString &title, const QString &text) {
    auto message =
        QDBusMessage::createMethodCall("org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                                       "org.freedesktop.Notifications", "Notify");
    const QVariantMap hints{{"desktop-entry", "com.brenholt.Kalvora"}};
    message << QStringLiteral("Kalvora") << 0U << QStringLiteral("kalvora") << title << text.toHtmlEscaped()
            << QStringList() << hints << -1;
    send(QDBusConnection::sessionBus(), message);
}

void KVDesktop::playCompleteSound() {
    if (!_sound) _sound = std::make_unique<Sound>();
    _sound->playComplete();
}

void KVDesktop::suspend() {
    auto message = QDBusMessage::createMethodCall("org.freedesktop.login1", "/org/freedesktop/login1",
                                                  "org.freedesktop.login1.Manager", "Suspend");
    message << true;
    send(QDBusConnection::systemBus(), message);
}

void KVDesktop::showInFileManager(const QUrl &url) {
    const QUrl folder = url.adjusted(QUrl::RemoveFilename);
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        QDesktopServices::openUrl(folder);
        return;
    }
    auto message =
        QDBusMessage::createMethodCall("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                                       "org.freedesktop.FileManager1", "ShowItems");
    message << QStringList{url.toString(QUrl::FullyEncoded)} << QString();
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), &_context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, folder] {
        if (watcher->isError()) QDesktopServices::openUrl(folder);
        watcher->deleteLater();
    });
}

void KVDesktop::setKeepsAwake(bool keepsAwake) {
    if (_keepsAwake == keepsAwake) return;
    _keepsAwake = keepsAwake;
    if (!keepsAwake) {
        if (_inhibitor >= 0) ::close(std::exchange(_inhibitor, -1));
        return;
    }
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected()) return;
    auto message = QDBusMessage::createMethodCall("org.freedesktop.login1", "/org/freedesktop/login1",
                                                  "org.freedesktop.login1.Manager", "Inhibit");
    message << QStringLiteral("sleep:idle") << QStringLiteral("Kalvora") << QStringLiteral("Converting media")
            << QStringLiteral("block");
    const QDBusPendingReply<QDBusUnixFileDescriptor> reply = bus.asyncCall(message);
    auto *watcher = new QDBusPendingCallWatcher(reply, &_context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [this, watcher] {
        const QDBusPendingReply<QDBusUnixFileDescriptor> answer = *watcher;
        if (!answer.isError() && _keepsAwake && _inhibitor < 0)
            _inhibitor = ::dup(answer.value().fileDescriptor());
        watcher->deleteLater();
    });
}

void KVDesktop::showTaskbarProgress(std::optional<double> progress) {
    const bool isVisible = progress && std::isfinite(*progress);
    auto message =
        QDBusMessage::createSignal("/com/brenholt/Kalvora", "com.canonical.Unity.LauncherEntry", "Update");
    const QVariantMap properties{{"progress", isVisible ? std::clamp(*progress, 0.0, 1.0) : 0.0},
                                 {"progress-visible", isVisible}};
    message << QStringLiteral("application://") + desktopFile << properties;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) bus.send(message);
}

QString KVDesktop::countryCode() {
    const QString country = countryOfTimeZone(systemTimeZone());
    if (!country.isEmpty()) return country;
    // "en_US": the part behind the underscore.
    return QLocale::system().name().section('_', 1, 1);
}
