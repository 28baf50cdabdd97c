#include "support/KVTestHome.h"

#include "platform/KVResources.h"

#include <QDir>

KVTestHome::KVTestHome() {
    const QString home = _home.path();
    qputenv("HOME", home.toUtf8());
    qputenv("XDG_CONFIG_HOME", (home + "/config").toUtf8());
    qputenv("XDG_DATA_HOME", (home + "/data").toUtf8());
    qputenv("XDG_CACHE_HOME", (home + "/cache").toUtf8());
    qputenv("XDG_RUNTIME_DIR", (home + "/run").toUtf8());
    qputenv("LC_ALL", "C.UTF-8");
    KVResources::setDirectory(QStringLiteral(KV_BUILD_DIRECTORY "/share/kalvora/resources"));
}

KVTestHome::~KVTestHome() {
    // Leave the temporary folder, which the program makes its working directory, before it is removed.
    QDir::setCurrent(QStringLiteral("/"));
}
