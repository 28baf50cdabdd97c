#pragma once

#include <QDBusAbstractAdaptor>
#include <QList>
#include <QObject>
#include <QUrl>
#include <QVariantMap>

/// One program: the first start owns the name on the session bus and speaks org.freedesktop.Application; a
/// second start hands its files to it. Without a session bus every start runs alone. Main thread.
class KVSingleApplication : public QObject {
    Q_OBJECT

  public:
    explicit KVSingleApplication(QObject *parent = nullptr);

    /// True where another start took the files (or, with none, came to the front): this one has nothing left
    /// to do. Otherwise this one is the first from now on.
    bool handOver(const QList<QUrl> &urls);

  Q_SIGNALS:
    void activated();
    /// The window comes to the front for these as well.
    void filesReceived(const QList<QUrl> &urls);

  private:
    enum class Answer { taken, gone, refused };
    Answer _tellOther(const QList<QUrl> &urls);
};

/// org.freedesktop.Application of KVSingleApplication.
class KVApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

  public:
    explicit KVApplicationAdaptor(KVSingleApplication &application);

  public Q_SLOTS:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &name, const QVariantList &parameter, const QVariantMap &platformData);

  private:
    KVSingleApplication &_application;
};
