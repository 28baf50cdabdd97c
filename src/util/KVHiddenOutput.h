#pragma once

#include "kvcore/KVError.h"
#include "platform/KVFileHandle.h"

#include <QString>

#include <atomic>
#include <functional>
#include <memory>

/// A file that is being written and that nobody sees until it is whole: it has no name in its folder, and
/// what becomes of the program meanwhile leaves nothing behind. Where the file system knows no files without
/// a name, it has a hidden one that goes with the object.
class KVHiddenOutput {
  public:
    static KVResult<std::unique_ptr<KVHiddenOutput>> create(const QString &folder);
    /// As `create` does on file systems that know no files without a name.
    static KVResult<std::unique_ptr<KVHiddenOutput>> createWithHiddenName(const QString &folder);

    ~KVHiddenOutput();
    KVHiddenOutput(const KVHiddenOutput &) = delete;
    KVHiddenOutput &operator=(const KVHiddenOutput &) = delete;

    // The file as writers need it; any thread, one at a time. -1 for a failure.
    qint64 write(const void *data, qint64 size);
    bool writeAt(qint64 offset, const void *data, qint64 size);
    qint64 read(void *data, qint64 size) const;
    qint64 seek(qint64 offset, int whence) const;

    /// Lets every later write fail. Any thread, also while another one writes.
    void cancel() { _isCancelled = true; }

    /// `errno` of the first write that failed, 0 as long as none has.
    int writeError() const { return _writeError; }

    /// Makes the file durable and gives it the first name of `pathAt(0)`, `pathAt(1)`, ... that nothing has,
    /// not even a missing source. Never replaces a file. Returns the path; called once.
    KVResult<QString> publish(const std::function<QString(int)> &pathAt);

  private:
    KVHiddenOutput(const QString &folder, KVFileDescriptor file, const QString &hiddenPath);

    bool _noteFailure();
    /// False where the name is taken.
    KVResult<bool> _publishNameless(const QString &path) const;
    KVResult<bool> _publishRenamed(const QString &path);

    QString _folder;
    KVFileDescriptor _file;
    QString _hiddenPath; ///< Empty for a file without a name.
    std::atomic<int> _writeError = 0;
    std::atomic<bool> _isCancelled = false;
};
