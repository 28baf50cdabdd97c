#pragma once

#include "platform/KVProcess.h"

/// A session bus of the test's own, and from then on the one that this process and its children speak to. To
/// be made before the first use of a session bus.
class KVTestSessionBus {
  public:
    /// `folder` holds the bus's socket and outlives it.
    explicit KVTestSessionBus(const QString &folder);

    QString address() const { return _address; }

  private:
    const QString _address;
    KVProcess _daemon;
};
