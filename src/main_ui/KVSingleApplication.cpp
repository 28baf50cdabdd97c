#include "main_ui/KVSingleApplication.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

const QString KVSingleApplication::serviceName = QStringLiteral("com.brenholt.Kalvora");
const QString KVSingleApplication::objectPath = QStringLiteral("/com/brenholt/Kalvora");

KVSingleApplication::KVSingleApplication(QObject *parent)
    : QObject(parent) {
    new KVApplicationAdaptor(*this); // Qt's object tree owns it
}

bool KVSingleApplication::handOver(const QList<QUrl> &urls) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    // The object stands before the name is ours, so that nobody asks for what is not there yet.
    bus.registerObject(objectPath, this, QDBusConnection::ExportAdaptors);
    if (bus.registerService(serviceName)) return false;

    auto message = QDBusMessage::createMethodCall(serviceName, objectPath, "org.freedesktop.Application",
                                                  urls.isEmpty() ? "Activate" : "Open");
    if (!urls.isEmpty()) message << QStringList(QUrl::toStringList(urls, QUrl::FullyEncoded));
    message << QVariantMap();
    // The other start may be busy with a question: what counts is that the message has arrived.
    return bus.call(message, QDBus::Block, 5000).type() != QDBusMessage::ErrorMessage;
}

KVApplicationAdaptor::KVApplicationAdaptor(KVSingleApplication &application)
    : QDBusAbstractAdaptor(&application)
    , _application(application) {}

void KVApplicationAdaptor::Activate(const QVariantMap &) {
    Q_EMIT _application.activated();
}

void KVApplicationAdaptor::Open(const QStringList &uris, const QVariantMap &) {
    const QList<QUrl> urls = QUrl::fromStringList(uris);
    // The caller gets its answer first: taking files in may take a while.
    QMetaObject::invokeMethod(
        &_application, [this, urls] { Q_EMIT _application.filesReceived(urls); }, Qt::QueuedConnection);
    Q_EMIT _application.activated();
}

void KVApplicationAdaptor::ActivateAction(const QString &, const QVariantList &, const QVariantMap &) {
    Q_EMIT _application.activated();
}
