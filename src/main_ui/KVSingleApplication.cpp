#include "main_ui/KVSingleApplication.h"

#include "core/doors/KVWindowBusName.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace {

constexpr int longestAnswer = 5000; // milliseconds

// What the desktop gave this start, so that the other may come to the front.
QVariantMap activationData() {
    QVariantMap data;
    const auto pass = [&data](const char *variable, const char *key) {
        if (const QString value = qEnvironmentVariable(variable); !value.isEmpty()) data.insert(key, value);
    };
    pass("XDG_ACTIVATION_TOKEN", "activation-token");
    pass("DESKTOP_STARTUP_ID", "desktop-startup-id");
    return data;
}

// Where Qt looks for it when a window is activated.
void useActivationData(const QVariantMap &data) {
    const QString token = data.value(QStringLiteral("activation-token")).toString();
    if (!token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

} // namespace

KVSingleApplication::KVSingleApplication(QObject *parent)
    : QObject(parent) {
    new KVApplicationAdaptor(*this); // Qt's object tree owns it
}

bool KVSingleApplication::handOver(const QList<QUrl> &urls) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    // The object stands before the name is ours, so that nobody asks for what is not there yet.
    bus.registerObject(KVWindowBusName::objectPath, this, QDBusConnection::ExportAdaptors);
    // The other start may end between our two questions; then the name is free after all.
    for (int attempt = 0; attempt < 3; ++attempt) {
        if (bus.registerService(KVWindowBusName::service)) return false;
        switch (_tellOther(urls)) {
        case Answer::taken:
            return true;
        case Answer::refused:
            return false;
        case Answer::gone:
            break;
        }
    }
    return false;
}

KVSingleApplication::Answer KVSingleApplication::_tellOther(const QList<QUrl> &urls) {
    auto message =
        QDBusMessage::createMethodCall(KVWindowBusName::service, KVWindowBusName::objectPath,
                                       "org.freedesktop.Application", urls.isEmpty() ? "Activate" : "Open");
    message.setAutoStartService(false);
    if (!urls.isEmpty()) message << QStringList(QUrl::toStringList(urls, QUrl::FullyEncoded));
    message << activationData();

    const QDBusMessage answer = QDBusConnection::sessionBus().call(message, QDBus::Block, longestAnswer);
    if (answer.type() != QDBusMessage::ErrorMessage) return Answer::taken;
    switch (QDBusError(answer).type()) {
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        return Answer::taken; // it looks at files just now: the bus keeps the message for it
    case QDBusError::ServiceUnknown:
        return Answer::gone;
    default:
        return Answer::refused;
    }
}

KVApplicationAdaptor::KVApplicationAdaptor(KVSingleApplication &application)
    : QDBusAbstractAdaptor(&application)
    , _application(application) {}

void KVApplicationAdaptor::Activate(const QVariantMap &platformData) {
    useActivationData(platformData);
    Q_EMIT _application.activated();
}

void KVApplicationAdaptor::Open(const QStringList &uris, const QVariantMap &platformData) {
    useActivationData(platformData);
    const QList<QUrl> urls = QUrl::fromStringList(uris);
    // The caller gets its answer first: taking files in may take a while.
    QMetaObject::invokeMethod(
        &_application, [this, urls] { Q_EMIT _application.filesReceived(urls); }, Qt::QueuedConnection);
}

void KVApplicationAdaptor::ActivateAction(const QString &, const QVariantList &, const QVariantMap &) {
    Q_EMIT _application.activated();
}
