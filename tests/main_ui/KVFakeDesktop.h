#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
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

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

  private:
    QDBusConnection _bus;
};
