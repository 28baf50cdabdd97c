#include "util/KVAnonymousPath.h"

#include <QFile>

#include <array>

#include <pwd.h>
#include <unistd.h>

QString KVUserName() {
    passwd entry{};
    passwd *found = nullptr;
    std::array<char, 4096> buffer{};
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) return {};
    return QFile::decodeName(found->pw_name);
}

QString KVAnonymousPath(const QString &path, const QString &userName) {
    if (userName.isEmpty()) return path;
    return QString(path).replace("/" + userName + "/", QStringLiteral("/*USER*/"));
}
