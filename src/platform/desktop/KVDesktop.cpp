#include "platform/desktop/KVDesktop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QFile>
#include <QLocale>
#include <QTimeZone>

#include <fcntl.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace {

// The name of the desktop file and of the icon.
const QString desktopEntry = "com.brenholt.Kalvora";

const QString portalService = "org.freedesktop.portal.Desktop";

// Starts a call and forgets it.
void send(const QDBusConnection &bus, const QDBusMessage &message) {
    if (bus.isConnected()) bus.asyncCall(message);
}

// Starts a call; `handle` gets the answer unless `context` has gone meanwhile.
void ask(const QDBusConnection &bus, const QDBusMessage &message, QObject &context,
         const std::function<void(const QDBusPendingCall &)> &handle) {
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), &context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, handle] {
        handle(*watcher);
        watcher->deleteLater();
    });
}

QDBusMessage notification(const QString &title, const QString &text, uint replacedId) {
    auto message =
        QDBusMessage::createMethodCall("org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                                       "org.freedesktop.Notifications", "Notify");
    const QVariantMap hints{{"desktop-entry", desktopEntry}};
    message << QStringLiteral("Kalvora") << replacedId << desktopEntry << title << text.toHtmlEscaped()
            << QStringList() << hints << -1;
    return message;
}

// The country of a zone by the time zone database's own table: "DE\t+5230+01322\tEurope/Berlin".
QString countryOfTimeZone(const QByteArray &zone) {
    QFile table(QStringLiteral("/usr/share/zoneinfo/zone.tab"));
    if (!table.open(QIODevice::ReadOnly)) return {};
    for (const QByteArray &line : table.readAll().split('\n')) {
        const auto columns = line.split('\t');
        if (columns.size() >= 3 && columns.at(2) == zone) return QString::fromLatin1(columns.first());
    }
    return {};
}

} // namespace

KVDesktop::KVDesktop() = default;

KVDesktop::~KVDesktop() {
    setKeepsAwake(false);
    for (const Shown &shown : std::as_const(_shown)) // the last word counts, also without a reply
        if (shown.next)
            send(QDBusConnection::sessionBus(), notification(shown.next->first, shown.next->second, 0));
}

void KVDesktop::postNotification(const QString &title, const QString &text, const QString &topic) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    if (topic.isEmpty()) return send(bus, notification(title, text, 0));
    Shown &shown = _shown[topic];
    if (shown.id != 0) return send(bus, notification(title, text, shown.id));
    // Its number is known after the first reply; until then only the newest text is kept.
    if (std::exchange(shown.isPending, true)) {
        shown.next = {title, text};
        return;
    }
    ask(bus, notification(title, text, 0), _context, [this, topic](const QDBusPendingCall &call) {
        const QDBusPendingReply<uint> reply = call;
        Shown &answered = _shown[topic];
        answered.isPending = false;
        if (!reply.isError()) answered.id = reply.value();
        if (const auto next = std::exchange(answered.next, std::nullopt))
            postNotification(next->first, next->second, topic);
    });
}

void KVDesktop::playCompleteSound() {
    _sound.play();
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
    ask(bus, message, _context, [folder](const QDBusPendingCall &answer) {
        if (answer.isError()) QDesktopServices::openUrl(folder);
    });
}

void KVDesktop::setKeepsAwake(bool keepsAwake) {
    if (_keepsAwake == keepsAwake) return;
    _keepsAwake = keepsAwake;
    if (keepsAwake) return _askManagerToKeepAwake();
    _inhibitor.reset();
    if (!_inhibitionRequest.isEmpty())
        send(QDBusConnection::sessionBus(),
             QDBusMessage::createMethodCall(portalService, std::exchange(_inhibitionRequest, {}),
                                            "org.freedesktop.portal.Request", "Close"));
}

void KVDesktop::_askManagerToKeepAwake() {
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected()) return _askPortalToKeepAwake();
    auto message = QDBusMessage::createMethodCall("org.freedesktop.login1", "/org/freedesktop/login1",
                                                  "org.freedesktop.login1.Manager", "Inhibit");
    message << QStringLiteral("sleep:idle") << QStringLiteral("Kalvora") << QStringLiteral("Converting media")
            << QStringLiteral("block");
    ask(bus, message, _context, [this](const QDBusPendingCall &call) {
        const QDBusPendingReply<QDBusUnixFileDescriptor> answer = call;
        if (answer.isError()) return _askPortalToKeepAwake();
        // No child may inherit it: the machine would stay awake with the child.
        if (_keepsAwake)
            _inhibitor = KVFileDescriptor(::fcntl(answer.value().fileDescriptor(), F_DUPFD_CLOEXEC, 0));
    });
}

void KVDesktop::_askPortalToKeepAwake() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!_keepsAwake || !bus.isConnected()) return;
    auto message = QDBusMessage::createMethodCall(portalService, "/org/freedesktop/portal/desktop",
                                                  "org.freedesktop.portal.Inhibit", "Inhibit");
    constexpr uint suspending = 4;
    message << QString() << suspending << QVariantMap{{"reason", "Converting media"}};
    ask(bus, message, _context, [this](const QDBusPendingCall &call) {
        const QDBusPendingReply<QDBusObjectPath> answer = call;
        if (!answer.isError()) _inhibitionRequest = answer.value().path();
        if (!_keepsAwake) { // it has ended meanwhile
            _keepsAwake = true;
            setKeepsAwake(false);
        }
    });
}

void KVDesktop::showTaskbarProgress(std::optional<double> progress) {
    const bool isVisible = progress && std::isfinite(*progress);
    const int percent = isVisible ? int(std::clamp(*progress, 0.0, 1.0) * 100) : -1;
    if (std::exchange(_shownPercent, percent) == percent) return;
    auto message =
        QDBusMessage::createSignal("/com/brenholt/Kalvora", "com.canonical.Unity.LauncherEntry", "Update");
    const QVariantMap properties{{"progress", isVisible ? percent / 100.0 : 0.0},
                                 {"progress-visible", isVisible}};
    message << "application://" + desktopEntry + ".desktop" << properties;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) bus.send(message);
}

QString KVDesktop::countryCode() {
    QString country = countryOfTimeZone(QTimeZone::systemTimeZoneId());
    if (!country.isEmpty()) return country;
    // "en_US": the part behind the underscore.
    return QLocale::system().name().section('_', 1, 1);
}

bool KVDesktop::isSandboxed() {
    return QFile::exists(QStringLiteral("/.flatpak-info")) || qEnvironmentVariableIsSet("SNAP");
}
