#pragma once

#include <QString>

class KVApplicationServices;
class KVConversion;

/// What the user is notified of during a run and at its end. The successes of a run are one notification,
/// which is replaced as their number grows; every failure has its own, which names the cause. A conversion
/// that the user has cancelled has none. Main thread.
class KVRunNotifications {
  public:
    /// The services outlive the object.
    explicit KVRunNotifications(KVApplicationServices &services);

    void conversionDidEnd(const KVConversion &conversion);
    /// Nothing runs any more; what comes next is another run.
    void runDidEnd();

  private:
    void _notifyOfSuccess(const KVConversion &conversion);
    void _notifyOfFailure(const KVConversion &conversion, const QString &cause);

    KVApplicationServices &_services;
    int _run = 1;
    int _successes = 0;
    int _successesWithWarnings = 0;
    int _failures = 0;
};
