#include "util/KVOutputClaim.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <cerrno>
#include <mutex>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// The names that conversions of this process have claimed: also those that could not be created.
struct ClaimedNames {
    std::mutex mutex;
    QSet<QString> paths;
};

ClaimedNames &claimedNames() {
    static ClaimedNames names;
    return names;
}

QString pathOf(const QUrl &url) {
    return QDir::cleanPath(url.toLocalFile());
}

} // namespace

KVOutputClaim::Attempt KVOutputClaim::attempt(const QUrl &url) {
    const QString path = pathOf(url);
    const std::scoped_lock lock(claimedNames().mutex);
    if (claimedNames().paths.contains(path)) return {Outcome::nameTaken, nullptr};
    const int file =
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0 && errno == EEXIST) return {Outcome::nameTaken, nullptr};
    if (file >= 0) ::close(file);
    claimedNames().paths.insert(path);
    return {Outcome::claimed, std::shared_ptr<KVOutputClaim>(new KVOutputClaim(url))};
}

KVOutputClaim::~KVOutputClaim() {
    const QString path = pathOf(_url);
    const std::scoped_lock lock(claimedNames().mutex);
    if (!_isKept) ::unlink(QFile::encodeName(path).constData()); // a file only, never a folder
    claimedNames().paths.remove(path);
}

void KVOutputClaim::keep() {
    _isKept = true;
}
