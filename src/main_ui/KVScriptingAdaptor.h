#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QStringList>

#include <memory>

class KVKalvoraApplication;

/// The scripting commands on the session bus, at the object that is handed in. Main thread.
class KVScriptingAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.brenholt.Kalvora.Scripting")

  public:
    KVScriptingAdaptor(QObject *busObject, std::weak_ptr<KVKalvoraApplication> application);

  public Q_SLOTS:
    bool Start(uint queueCode);
    bool Pause(uint queueCode);
    bool SelectPreset(const QString &presetName, uint queueCode);
    /// Answers when the files have been looked at; true if any was taken in or is about to be.
    bool Add(const QStringList &uris, const QDBusMessage &message);

  private:
    std::weak_ptr<KVKalvoraApplication> _application;
};
