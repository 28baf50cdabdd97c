#include "support/KVTestHome.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const KVTestHome home;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:"); // no test speaks to the desktop of whoever runs it
    QApplication application(argc, argv);
    QApplication::setApplicationName("Kalvora");
    return RUN_ALL_TESTS();
}
