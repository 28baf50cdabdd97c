#include "util/KVTempDirectory.h"

#include "platform/KVFileManager.h"

#include <QFile>

#include <cstdlib>
#include <mutex>
#include <optional>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// The use of the folder by this process: a shared lock on a file beside the folder, held until the process
/// ends. A lock of an open file is changed in one step, so it is never lost on the way to an exclusive one.
class FolderUse {
  public:
    static FolderUse &shared() {
        static FolderUse use;
        return use;
    }

    /// The first call makes the folder the working directory and takes the lock.
    void begin(const QString &folder) {
        const std::scoped_lock lock(_mutex);
        if (_hasBegun) return;
        _hasBegun = true;
        // Whoever has gone to the folder and finds it missing later fails on its own.
        (void)!::chdir(QFile::encodeName(folder).constData());
        _file = KVFileDescriptor(
            ::open(QFile::encodeName(folder + ".lock").constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
        // Waits for another process that is emptying the folder.
        if (_file.isValid() && !_lock(F_RDLCK, F_OFD_SETLKW)) _file.reset();
    }

    /// Runs `action` if no other process uses the folder; a process that wants to begin waits meanwhile.
    template <class Action>
    void whenAlone(const Action &action) {
        const std::scoped_lock lock(_mutex);
        if (!_file.isValid() || !_lock(F_WRLCK, F_OFD_SETLK)) return;
        action();
        _lock(F_RDLCK, F_OFD_SETLK);
    }

  private:
    bool _lock(short type, int command) {
        struct flock range {};
        range.l_type = type;
        range.l_whence = SEEK_SET; // the whole file
        int result;
        do
            result = ::fcntl(_file.get(), command, &range);
        while (result != 0 && errno == EINTR);
        return result == 0;
    }

    std::mutex _mutex;
    bool _hasBegun = false;
    KVFileDescriptor _file;
};

/// The program's own folder, made and in use; nothing where it has to do with the system's.
std::optional<QUrl> ownFolder() {
    const auto support = KVFileManager::applicationSupportDirectory();
    if (!support) return std::nullopt;
    const QUrl folder = KVFileManager::appendingPathComponent(
        KVFileManager::appendingPathComponent(*support, "com.brenholt.kalvora"), "tmp");
    (void)KVFileManager::createDirectory(folder);
    FolderUse::shared().begin(folder.toLocalFile());
    return folder;
}

} // namespace

QUrl KVTempDirectoryURL() {
    return ownFolder().value_or(KVFileManager::temporaryDirectory());
}

QString KVTempDirectoryPath() {
    return KVTempDirectoryURL().toLocalFile();
}

KVFileDescriptor KVNamelessTempFile() {
    QByteArray name = QFile::encodeName(KVTempDirectoryPath() + "/XXXXXX");
    KVFileDescriptor file(::mkostemp(name.data(), O_CLOEXEC));
    if (file.isValid()) ::unlink(name.constData());
    return file;
}

void KVCleanTempDirectory() {
    const auto folder = ownFolder();
    if (!folder) return; // the system's folder is everyone's
    FolderUse::shared().whenAlone([&] {
        for (const QUrl &entry : KVFileManager::contentsOfDirectory(*folder).value_or(QList<QUrl>()))
            (void)KVFileManager::removeItem(entry);
    });
}
