#include "support/KVTestCase.h"

#include "kvcore/KVMainThread.h"

#include <QFileInfo>
#include <QTimer>

#include <chrono>
#include <filesystem>
#include <system_error>

void PrintTo(const QStringList &list, std::ostream *out) {
    *out << '[';
    for (const QString &entry : list)
        *out << (&entry == &list.first() ? "\"" : ", \"") << entry.toStdString() << '"';
    *out << ']';
}

KVTestCase::~KVTestCase() {
    std::error_code ignored; // Qt leaves what has a name that is no text
    std::filesystem::remove_all(_folder.path().toStdString(), ignored);
}

QString KVTestCase::path(const QString &name) const {
    return name.isEmpty() ? _folder.path() : _folder.filePath(name);
}

QString KVTestCase::write(const QString &name, const QByteArray &content) const {
    const QString target = path(name);
    QDir().mkpath(QFileInfo(target).path());
    QFile file(target);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << target.toStdString();
    file.write(content);
    return target;
}

QByteArray KVTestCase::read(const QString &path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QString KVTestCase::writeScript(const QString &name, const QByteArray &body) const {
    const QString target = write(name, "#!/bin/sh\n" + body);
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return target;
}

bool KVTestCase::runUntil(const std::function<bool()> &isDone, double seconds) {
    // What another process does is no event here: look now and then.
    QTimer tick;
    tick.start(std::chrono::milliseconds(10));
    return KVMainThread::runUntil(isDone, seconds);
}
