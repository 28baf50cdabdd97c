#include "main_ui/KVFakeDesktop.h"

#include <QDBusMessage>

namespace {

const QString connectionName = "fake desktop";

} // namespace

KVFakeDesktop::KVFakeDesktop(const QString &busAddress)
    : _bus(QDBusConnection::connectToBus(busAddress, connectionName)) {
    _bus.registerVirtualObject("/", this, QDBusConnection::SubPath);
    for (const char *service : {"org.freedesktop.Notifications", "org.freedesktop.FileManager1"})
        _bus.registerService(service);
}

KVFakeDesktop::~KVFakeDesktop() {
    QDBusConnection::disconnectFromBus(connectionName);
}

QStringList KVFakeDesktop::notifications() const {
    QStringList texts;
    for (const Call &call : calls)
        if (call.member == "Notify")
            texts << call.arguments.at(3).toString() + "|" + call.arguments.at(4).toString();
    return texts;
}

bool KVFakeDesktop::handleMessage(const QDBusMessage &message, const QDBusConnection &connection) {
    calls.push_back({message.member(), message.arguments()});
    const QVariantList words = message.arguments();
    if (message.member() != "Notify") return connection.send(message.createReply());
    const uint replaced = words.at(1).toUInt();
    const uint id = replaced != 0 ? replaced : uint(_shown.size()) + 1;
    _shown[id] = words.at(3).toString() + "|" + words.at(4).toString();
    return connection.send(message.createReply(id));
}
