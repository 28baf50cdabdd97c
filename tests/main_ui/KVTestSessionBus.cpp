#include "main_ui/KVTestSessionBus.h"

#include <QFile>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

KVTestSessionBus::KVTestSessionBus(const QString &folder)
    : _address("unix:path=" + folder + "/.bus") {
    _daemon.setLaunchPath(QStandardPaths::findExecutable("dbus-daemon"));
    _daemon.setArguments({"--session", "--nofork", "--address=" + _address});
    EXPECT_TRUE(_daemon.launch());
    while (_daemon.isRunning() && !QFile::exists(folder + "/.bus"))
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_TRUE(_daemon.isRunning());
    qputenv("DBUS_SESSION_BUS_ADDRESS", _address.toUtf8());
}
