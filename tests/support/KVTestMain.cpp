#include "platform/KVResources.h"
#include "support/KVTestCase.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

/// A home folder and XDG folders that nobody else uses, gone with the process.
void moveHome(const QString &home) {
    qputenv("HOME", home.toUtf8());
    qputenv("XDG_CONFIG_HOME", (home + "/config").toUtf8());
    qputenv("XDG_DATA_HOME", (home + "/data").toUtf8());
    qputenv("XDG_CACHE_HOME", (home + "/cache").toUtf8());
    qputenv("XDG_RUNTIME_DIR", (home + "/run").toUtf8());
    qputenv("LC_ALL", "C.UTF-8");
}

} // namespace

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir home;
    moveHome(home.path());
    QCoreApplication application(argc, argv);
    KVResources::setDirectory(QStringLiteral(KV_BUILD_DIRECTORY "/share/kalvora/resources"));
    const int result = RUN_ALL_TESTS();
    // Leave the temporary folder, which the program makes its working directory, before it is removed.
    QDir::setCurrent(QStringLiteral("/"));
    return result;
}
