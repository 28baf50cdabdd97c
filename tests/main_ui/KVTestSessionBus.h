#pragma once

#include <QProcess>
#include <QString>

/// A session bus of the test's own, and from then on the one that this process and its children speak to. To
/// be made before the first use of a session bus.
class KVTestSessionBus {
  public:
    KVTestSessionBus();
    ~KVTestSessionBus();
    KVTestSessionBus(const KVTestSessionBus &) = delete;
    KVTestSessionBus &operator=(const KVTestSessionBus &) = delete;

    QString address() const { return _address; }

  private:
    QProcess _daemon;
    QString _address;
};
