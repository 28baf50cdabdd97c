#include "util/KVHiddenOutput.h"

#include "util/KVOutputClaim.h"
#include "util/KVSourceNames.h"

#include <QFile>
#include <QUuid>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr mode_t readableAndWritable = 0666; // less what the user's mask takes away

bool isWithoutNamelessFiles(int error) {
    constexpr std::array unsupported{EOPNOTSUPP, EISDIR, EINVAL};
    return std::ranges::find(unsupported, error) != unsupported.end();
}

/// The new name survives a loss of power as well.
void syncFolder(const QString &folder) {
    const KVFileDescriptor directory(
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.isValid()) ::fsync(directory.get());
}

} // namespace

KVHiddenOutput::KVHiddenOutput(const QString &folder, KVFileDescriptor file, const QString &hiddenPath)
    : _folder(folder)
    , _file(std::move(file))
    , _hiddenPath(hiddenPath) {}

KVHiddenOutput::~KVHiddenOutput() {
    if (!_hiddenPath.isEmpty()) ::unlink(QFile::encodeName(_hiddenPath).constData());
}

KVResult<std::unique_ptr<KVHiddenOutput>> KVHiddenOutput::create(const QString &folder) {
    KVFileDescriptor file(
        ::open(QFile::encodeName(folder).constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, readableAndWritable));
    if (file.isValid())
        return std::unique_ptr<KVHiddenOutput>(new KVHiddenOutput(folder, std::move(file), {}));
    if (isWithoutNamelessFiles(errno)) return createWithHiddenName(folder);
    return tl::unexpected(KVPOSIXError(folder, errno));
}

KVResult<std::unique_ptr<KVHiddenOutput>> KVHiddenOutput::createWithHiddenName(const QString &folder) {
    const QString path = folder + "/.kalvora-" + QUuid::createUuid().toString(QUuid::WithoutBraces);
    KVFileDescriptor file(::open(QFile::encodeName(path).constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC,
                                 readableAndWritable));
    if (!file.isValid()) return tl::unexpected(KVPOSIXError(folder, errno));
    return std::unique_ptr<KVHiddenOutput>(new KVHiddenOutput(folder, std::move(file), path));
}

bool KVHiddenOutput::_noteFailure() {
    int none = 0;
    _writeError.compare_exchange_strong(none, errno);
    return false;
}

qint64 KVHiddenOutput::write(const void *data, qint64 size) {
    if (_isCancelled) return -1;
    const ssize_t written = ::write(_file.get(), data, static_cast<std::size_t>(size));
    if (written < 0) _noteFailure();
    return written;
}

bool KVHiddenOutput::writeAt(qint64 offset, const void *data, qint64 size) {
    if (_isCancelled) return false;
    const auto *bytes = static_cast<const char *>(data);
    while (size > 0) {
        const ssize_t written = ::pwrite(_file.get(), bytes, static_cast<std::size_t>(size), offset);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return _noteFailure();
        bytes += written;
        offset += written;
        size -= written;
    }
    return true;
}

qint64 KVHiddenOutput::read(void *data, qint64 size) const {
    return ::read(_file.get(), data, static_cast<std::size_t>(size));
}

qint64 KVHiddenOutput::seek(qint64 offset, int whence) const {
    return ::lseek(_file.get(), offset, whence);
}

KVResult<QString> KVHiddenOutput::publish(const std::function<QString(int)> &pathAt) {
    if (::fsync(_file.get()) != 0) {
        _noteFailure();
        return tl::unexpected(KVPOSIXError(_folder, errno));
    }
    for (int attempt = 0;; attempt++) {
        const QString path = pathAt(attempt);
        if (KVSourceNames::contain(QUrl::fromLocalFile(path))) continue;
        const auto isPublished = _hiddenPath.isEmpty() ? _publishNameless(path) : _publishRenamed(path);
        if (!isPublished) return tl::unexpected(isPublished.error());
        if (!*isPublished) continue;
        syncFolder(_folder);
        return path;
    }
}

KVResult<bool> KVHiddenOutput::_publishNameless(const QString &path) const {
    const QByteArray self = "/proc/self/fd/" + QByteArray::number(_file.get());
    const QByteArray name = QFile::encodeName(path);
    if (::linkat(AT_FDCWD, self.constData(), AT_FDCWD, name.constData(), AT_SYMLINK_FOLLOW) == 0) return true;
    if (errno == EEXIST) return false;
    return tl::unexpected(KVPOSIXError(path, errno));
}

KVResult<bool> KVHiddenOutput::_publishRenamed(const QString &path) {
    const auto attempt = KVOutputClaim::attempt(QUrl::fromLocalFile(path));
    if (attempt.outcome == KVOutputClaim::Outcome::nameTaken) return false;
    if (::rename(QFile::encodeName(_hiddenPath).constData(), QFile::encodeName(path).constData()) != 0)
        return tl::unexpected(KVPOSIXError(path, errno));
    _hiddenPath.clear();
    attempt.claim->keep();
    return true;
}
