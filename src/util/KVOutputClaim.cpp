#include "util/KVOutputClaim.h"

#include "util/KVSourceNames.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <cerrno>
#include <mutex>

#include <fcntl.h>
#include <sys/stat.h>
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

/// Nanoseconds.
qint64 changeTime(const struct stat &status) {
    constexpr qint64 nanosecondsOfSecond = 1'000'000'000;
    return status.st_mtim.tv_sec * nanosecondsOfSecond + status.st_mtim.tv_nsec;
}

} // namespace

KVOutputClaim::KVOutputClaim(const QUrl &url, KVFileDescriptor file)
    : _url(url)
    , _file(std::move(file)) {}

KVOutputClaim::Attempt KVOutputClaim::attempt(const QUrl &url) {
    const QString path = pathOf(url);
    const std::scoped_lock lock(claimedNames().mutex);
    if (claimedNames().paths.contains(path) || KVSourceNames::contain(url))
        return {Outcome::nameTaken, nullptr};
    KVFileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.isValid() && errno == EEXIST) return {Outcome::nameTaken, nullptr};
    claimedNames().paths.insert(path);
    return {Outcome::claimed, std::shared_ptr<KVOutputClaim>(new KVOutputClaim(url, std::move(file)))};
}

std::shared_ptr<KVOutputClaim> KVOutputClaim::replacing(const QUrl &url) {
    const QString path = pathOf(url);
    const std::scoped_lock lock(claimedNames().mutex);
    if (claimedNames().paths.contains(path) || KVSourceNames::contain(url) ||
        KVSourceNames::containFileAt(url))
        return nullptr;
    KVFileDescriptor file(::open(QFile::encodeName(path).constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (!file.isValid() || ::fstat(file.get(), &status) != 0) return nullptr;
    claimedNames().paths.insert(path);
    auto claim = std::shared_ptr<KVOutputClaim>(new KVOutputClaim(url, std::move(file)));
    claim->_isReplacing = true;
    claim->_replaced = {.size = status.st_size, .changedAt = changeTime(status)};
    return claim;
}

KVOutputClaim::~KVOutputClaim() {
    _discard(true);
    const std::scoped_lock lock(claimedNames().mutex);
    claimedNames().paths.remove(pathOf(_url));
}

bool KVOutputClaim::isInPlace() {
    const std::scoped_lock lock(_mutex);
    struct stat own = {};
    struct stat present = {};
    if (::lstat(QFile::encodeName(pathOf(_url)).constData(), &present) != 0) return false;
    if (!_file.isValid() || ::fstat(_file.get(), &own) != 0) return true;
    if (own.st_dev == present.st_dev && own.st_ino == present.st_ino) return true;
    // Some network file systems number a file anew.
    return own.st_nlink > 0 && own.st_size == present.st_size && changeTime(own) == changeTime(present);
}

void KVOutputClaim::keep() {
    const std::scoped_lock lock(_mutex);
    _isKept = true;
    _file.reset();
}

void KVOutputClaim::discard() {
    _discard(true);
}

void KVOutputClaim::discardWhatIsWritten() {
    _discard(false);
}

void KVOutputClaim::_discard(bool alsoEmpty) {
    const std::scoped_lock lock(_mutex);
    if (_isKept || !_file.isValid()) return;
    const QByteArray path = QFile::encodeName(pathOf(_url));
    struct stat own = {};
    struct stat present = {};
    if (::fstat(_file.get(), &own) != 0 || ::lstat(path.constData(), &present) != 0) return;
    if (own.st_dev != present.st_dev || own.st_ino != present.st_ino) return; // another program's file
    if (!alsoEmpty && own.st_size == 0) return;
    if (_isReplacing && _replaced == State{.size = own.st_size, .changedAt = changeTime(own)}) return;
    ::unlink(path.constData()); // a file only, never a folder
}
