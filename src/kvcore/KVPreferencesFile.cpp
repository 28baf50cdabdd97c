#include "kvcore/KVPreferencesFile.h"

#include "kvcore/KVError.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVPreferencesCoding.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

QString problemWith(const QString &path) {
    return KVPOSIXError(path, errno).reason;
}

bool writeAll(int descriptor, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), static_cast<size_t>(bytes.size()));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes = bytes.sliced(written);
    }
    return true;
}

std::optional<QByteArray> readAll(int descriptor) {
    QByteArray content;
    char chunk[16384];
    while (true) {
        const ssize_t count = ::read(descriptor, chunk, sizeof chunk);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return {};
        if (count == 0) return content;
        content.append(chunk, count);
    }
}

/// The state of the new file; nothing, and `errno`, where it could not be written.
std::optional<struct stat> writeAndSync(const QByteArray &path, const QByteArray &content) {
    const KVFileDescriptor file(
        ::open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600));
    struct stat status = {};
    const bool isWritten = file.isValid() && writeAll(file.get(), content) && ::fsync(file.get()) == 0 &&
                           ::fstat(file.get(), &status) == 0;
    return isWritten ? std::optional(status) : std::nullopt;
}

/// Makes the rename itself last.
void syncFolder(const QString &path) {
    const KVFileDescriptor folder(
        ::open(QFile::encodeName(QFileInfo(path).path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isValid()) ::fsync(folder.get());
}

/// A sibling name that nobody uses: "preferences.damaged-20240501-101500.json".
QString keptPath(const QString &path) {
    const QFileInfo file(path);
    const QString base = file.path() + "/" + file.completeBaseName() + ".damaged-" +
                         QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    QString candidate = base + ".json";
    for (int number = 2; QFileInfo::exists(candidate); ++number)
        candidate = QStringLiteral("%1-%2.json").arg(base).arg(number);
    return candidate;
}

} // namespace

KVPreferencesFile::KVPreferencesFile(QString path)
    : _path(std::move(path)) {}

bool KVPreferencesFile::refresh() {
    struct stat status = {};
    const bool exists = ::stat(QFile::encodeName(_path).constData(), &status) == 0;
    const auto present = exists ? _signature(status) : std::nullopt;
    if (present == _seen && _state != State::unreadable) return true;
    return _load() != State::damaged;
}

std::optional<KVPreferencesFile::Signature> KVPreferencesFile::_signature(const struct stat &status) {
    constexpr qint64 nanosecondsOfSecond = 1'000'000'000;
    return Signature{status.st_dev, status.st_ino, status.st_size,
                     status.st_mtim.tv_sec * nanosecondsOfSecond + status.st_mtim.tv_nsec};
}

KVPreferencesFile::State KVPreferencesFile::_load() {
    _values.clear();
    _seen.reset();
    const KVFileDescriptor file(::open(QFile::encodeName(_path).constData(), O_RDONLY | O_CLOEXEC));
    if (!file.isValid() && (errno == ENOENT || errno == ENOTDIR)) return _state = State::missing;

    struct stat status = {};
    std::optional<QByteArray> content;
    if (file.isValid() && ::fstat(file.get(), &status) == 0) {
        _seen = _signature(status);
        content = readAll(file.get());
    }
    if (!content) {
        KVLog("Can't read the preferences: " + problemWith(_path));
        return _state = State::unreadable;
    }
    auto decoded = KVPreferencesCoding::decode(*content);
    if (!decoded) return _state = State::damaged;
    _values = std::move(*decoded);
    _content = std::move(*content);
    return _state = State::read;
}

void KVPreferencesFile::keepAside() {
    // Another process may have put it right before we had the lock.
    if (_load() != State::damaged) return;
    const QString kept = keptPath(_path);
    if (::rename(QFile::encodeName(_path).constData(), QFile::encodeName(kept).constData()) != 0) {
        KVLog("Can't keep the damaged preferences aside: " + problemWith(_path));
        return;
    }
    KVLog("Damaged preferences kept as " + kept);
    _keptPaths.append(kept);
    _seen.reset();
    _state = State::missing;
}

QString KVPreferencesFile::replace(const QVariantMap &values, std::unique_lock<std::mutex> &access) {
    // What could not be read could not be kept either, and is not ours to overwrite.
    if (_state == State::damaged || _state == State::unreadable) return _path + ": not readable";

    const QByteArray content = KVPreferencesCoding::encode(values);
    if (_state == State::read && content == _content) return {};

    const QString target = _target();
    const QByteArray temporary = QFile::encodeName(target + ".new");
    access.unlock();
    const auto status = writeAndSync(temporary, content);
    access.lock();
    if (!status || ::rename(temporary.constData(), QFile::encodeName(target).constData()) != 0) {
        QString problem = problemWith(target);
        ::unlink(temporary.constData());
        return problem;
    }
    _seen = _signature(*status);
    _values = values;
    _content = content;
    _state = State::read;
    access.unlock();
    syncFolder(target);
    access.lock();
    return {};
}

/// A link to a file that is kept elsewhere stays a link.
QString KVPreferencesFile::_target() const {
    const QFileInfo file(_path);
    const QString real = file.isSymLink() ? file.canonicalFilePath() : QString();
    return real.isEmpty() ? _path : real;
}

QString KVPreferencesFile::_acquireLock() {
    const QString folder = QFileInfo(_path).path();
    if (!QFileInfo::exists(folder)) {
        const QString parent = QFileInfo(folder).path();
        QDir().mkpath(parent);
        if (::mkdir(QFile::encodeName(folder).constData(), 0700) != 0 && errno != EEXIST)
            return problemWith(folder);
    }
    const QString lockPath = _path + ".lock";
    KVFileDescriptor lock(
        ::open(QFile::encodeName(lockPath).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!lock.isValid()) return problemWith(lockPath);
    while (::flock(lock.get(), LOCK_EX) != 0) {
        if (errno != EINTR) return problemWith(lockPath);
    }
    _lock = std::move(lock);
    return {};
}

void KVPreferencesFile::_releaseLock() {
    _lock.reset();
}

KVPreferencesFile::Lock::Lock(KVPreferencesFile &file)
    : _file(file) {
    if (file._lockDepth == 0) _problem = file._acquireLock();
    if (_problem.isEmpty()) ++file._lockDepth;
}

KVPreferencesFile::Lock::~Lock() {
    if (_problem.isEmpty() && --_file._lockDepth == 0) _file._releaseLock();
}
