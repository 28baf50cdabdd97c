#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QMap>
#include <QVariantList>

#include <vector>

/// The services of a desktop, on a connection of their own: writes down what they are asked and answers yes.
class KVFakeDesktop : public QDBusVirtualObject {
  public:
    struct Call {
        QString member;
        QVariantList arguments;
    };

    explicit KVFakeDesktop(const QString &busAddress);
    ~KVFakeDesktop() override;

    std::vector<Call> calls;

    /// Title and text of each notification, as "title|text".
    QStringList notifications() const;

    /// The notifications that are on the screen: each replaces the one whose number it names.
    QStringList shown() const { return _shown.values(); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

  private:
    QDBusConnection _bus;
    QMap<uint, QString> _shown;
};
