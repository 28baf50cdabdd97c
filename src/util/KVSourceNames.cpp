#include "util/KVSourceNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMultiHash>

#include <algorithm>
#include <mutex>

#include <sys/stat.h>

namespace {

struct NamesInUse {
    std::mutex mutex;
    QMultiHash<QString, QString> paths; ///< By the file's name in lower case. A path counts several times.
};

/// Never destroyed: a conversion may outlast the end of the program.
NamesInUse &namesInUse() {
    static NamesInUse &names = *new NamesInUse;
    return names;
}

QString fileNameOf(const QString &path) {
    return path.section(u'/', -1);
}

QString folderOf(const QString &path) {
    return path.left(std::max<qsizetype>(path.lastIndexOf(u'/'), 1));
}

/// Whether both paths lead to one file or folder that exists.
bool leadToOne(const QString &one, const QString &other) {
    struct stat first = {};
    struct stat second = {};
    return ::stat(QFile::encodeName(one).constData(), &first) == 0 &&
           ::stat(QFile::encodeName(other).constData(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

bool isSameFolder(const QString &one, const QString &other) {
    return one == other || leadToOne(one, other);
}

bool isMissing(const QString &path) {
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) != 0;
}

} // namespace

KVSourceNames::KVSourceNames(const QList<QUrl> &files) {
    for (const QUrl &file : files) {
        const QString path = QDir::cleanPath(file.toLocalFile());
        const QString target = QFileInfo(path).canonicalFilePath(); // what a link leads to
        _names += {fileNameOf(path).toLower(), path};
        if (!target.isEmpty() && target != path) _names += {fileNameOf(target).toLower(), target};
    }
    const std::scoped_lock lock(namesInUse().mutex);
    for (const auto &[name, path] : _names)
        namesInUse().paths.insert(name, path);
}

KVSourceNames::~KVSourceNames() {
    const std::scoped_lock lock(namesInUse().mutex);
    auto &paths = namesInUse().paths;
    for (const auto &[name, path] : _names)
        paths.erase(paths.find(name, path));
}

bool KVSourceNames::contain(const QUrl &url) {
    const QString path = QDir::cleanPath(url.toLocalFile());
    const QString name = fileNameOf(path);
    QStringList sources;
    {
        const std::scoped_lock lock(namesInUse().mutex);
        sources = namesInUse().paths.values(name.toLower());
    }
    return std::ranges::any_of(sources, [&](const QString &source) {
        return isSameFolder(folderOf(source), folderOf(path)) &&
               (fileNameOf(source) == name || isMissing(source));
    });
}

bool KVSourceNames::containFileAt(const QUrl &url) {
    QStringList sources;
    {
        const std::scoped_lock lock(namesInUse().mutex);
        sources = namesInUse().paths.values();
    }
    return std::ranges::any_of(sources,
                               [&](const QString &source) { return leadToOne(source, url.toLocalFile()); });
}
