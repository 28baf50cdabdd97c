#include "support/KVStandInTool.h"

#include "platform/KVResources.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

KVStandInTool::KVStandInTool(const QString &folder, const QByteArray &script)
    : _folder(folder)
    , _previousDirectory(KVResources::directory()) {
    QDir().mkpath(folder);
    for (const char *name : {"fonts.conf", "hw_test.mov"})
        QFile::copy(_previousDirectory + "/" + name, path(name));
    replace(script);
    KVResources::setDirectory(folder);
}

KVStandInTool::~KVStandInTool() {
    KVResources::setDirectory(_previousDirectory);
}

void KVStandInTool::replace(const QByteArray &script) const {
    QFile::remove(path());
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\nhere='" + QFile::encodeName(_folder) + "'\n" + script);
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}
