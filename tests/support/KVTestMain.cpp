#include "support/KVTestHome.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const KVTestHome home;
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
