#pragma once

#include <QTemporaryDir>

/// A home folder and XDG folders that nobody else uses, from before the application object until the end of
/// the process, and the resources of the build tree.
class KVTestHome {
  public:
    KVTestHome();
    ~KVTestHome();
    KVTestHome(const KVTestHome &) = delete;
    KVTestHome &operator=(const KVTestHome &) = delete;

  private:
    QTemporaryDir _home;
};
