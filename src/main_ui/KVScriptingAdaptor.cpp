#include "main_ui/KVScriptingAdaptor.h"

#include "core/doors/KVScriptingCommands.h"
#include "kvcore/KVMainThread.h"
#include "main_ui/KVKalvoraApplication.h"

#include <QDBusConnection>

KVScriptingAdaptor::KVScriptingAdaptor(QObject *busObject, std::weak_ptr<KVKalvoraApplication> application)
    : QDBusAbstractAdaptor(busObject)
    , _application(std::move(application)) {}

bool KVScriptingAdaptor::Start(uint queueCode) {
    return KVScriptingCommands::start(KVScriptingCommands::queueType(queueCode));
}

bool KVScriptingAdaptor::Pause(uint queueCode) {
    return KVScriptingCommands::pause(KVScriptingCommands::queueType(queueCode));
}

bool KVScriptingAdaptor::SelectPreset(const QString &presetName, uint queueCode) {
    return KVScriptingCommands::selectPreset(presetName, KVScriptingCommands::queueType(queueCode));
}

bool KVScriptingAdaptor::Add(const QStringList &uris, const QDBusMessage &message) {
    message.setDelayedReply(true);
    // Files may bring questions, which run an event loop of their own: not from within the bus's call.
    KVMainThread::async([application = _application, uris, message] {
        const auto alive = application.lock();
        const bool isAnyAdded = alive && alive->addURLs(QUrl::fromStringList(uris));
        QDBusConnection::sessionBus().send(message.createReply(isAnyAdded));
    });
    return false; // the answer comes later
}
