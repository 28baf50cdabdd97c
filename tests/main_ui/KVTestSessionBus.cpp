#include "main_ui/KVTestSessionBus.h"

#include <gtest/gtest.h>

KVTestSessionBus::KVTestSessionBus() {
    _daemon.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    _daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
    while (!_daemon.canReadLine())
        if (!_daemon.waitForReadyRead(30000)) break;
    _address = QString::fromUtf8(_daemon.readLine()).trimmed();
    EXPECT_FALSE(_address.isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", _address.toUtf8());
}

KVTestSessionBus::~KVTestSessionBus() {
    _daemon.kill();
    _daemon.waitForFinished();
}
