#include "platform/KVResources.h"

#include <QFileInfo>

#include <filesystem>
#include <mutex>

namespace {

std::mutex mutex;
QString replacement; // under the mutex

QString installedDirectory() {
    std::error_code ignored;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", ignored);
    const auto prefix = executable.parent_path().parent_path();
    return QString::fromStdString((prefix / "share/kalvora/resources").string());
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
    static const QString installed = installedDirectory();
    return installed;
}

void KVResources::setDirectory(const QString &directory) {
    const std::scoped_lock lock(mutex);
    replacement = directory;
}
