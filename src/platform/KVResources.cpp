#include "platform/KVResources.h"

#include <QFileInfo>

#include <filesystem>
#include <mutex>

namespace {

std::mutex mutex;
QString replacement;       // under the mutex
QString helperReplacement; // under the mutex

QString installedPath(const std::string &place) {
    std::error_code ignored;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", ignored);
    return QString::fromStdString((executable.parent_path().parent_path() / place).string());
}

} // namespace

std::optional<QString> KVResources::path(const QString &name, const QString &type) {
    const QString path = directory() + "/" + name + (type.isEmpty() ? QString() : "." + type);
    const QFileInfo file(path);
    if (!file.exists() && !file.isSymLink()) return {};
    return path;
}

QString KVResources::directory() {
    const std::scoped_lock lock(mutex);
    if (!replacement.isEmpty()) return replacement;
    static const QString installed = installedPath("share/kalvora/resources");
    return installed;
}

QString KVResources::modulePath(const QString &name) {
    return installedPath("lib/kalvora/lib" + name.toStdString() + ".so");
}

QString KVResources::helperPath(const QString &name) {
    const std::scoped_lock lock(mutex);
    if (!helperReplacement.isEmpty()) return helperReplacement + "/" + name;
    return installedPath("lib/kalvora/" + name.toStdString());
}

void KVResources::setHelperDirectory(const QString &directory) {
    const std::scoped_lock lock(mutex);
    helperReplacement = directory;
}

void KVResources::setDirectory(const QString &directory) {
    const std::scoped_lock lock(mutex);
    replacement = directory;
}
