#pragma once

#include "kvcore/KVFileDescriptor.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <sys/stat.h>

#include <mutex>
#include <optional>
#include <utility>

/// The file of a preference store: its cached content, the lock that keeps several writers apart, and the
/// atomic write. Its user sees to it that one thread at a time is here, but for `replace`, and that one
/// thread at a time holds the lock.
class KVPreferencesFile {
  public:
    explicit KVPreferencesFile(QString path);

    const QString &path() const { return _path; }

    /// Looks whether the file has changed, and reads it if so. False where it is damaged now: then
    /// `keepAside`.
    bool refresh();
    /// Puts the file aside if it is still damaged. Needs the lock.
    void keepAside();
    /// What was on disk at the latest look; empty where there was no file.
    const QVariantMap &values() const { return _values; }

    /// Keeps other writers out, also those of other processes, as long as it lives. May be nested.
    class Lock {
      public:
        explicit Lock(KVPreferencesFile &file);
        ~Lock();
        Lock(const Lock &) = delete;
        Lock &operator=(const Lock &) = delete;
        /// Why the lock could not be had; empty when it is held.
        const QString &problem() const { return _problem; }

      private:
        KVPreferencesFile &_file;
        QString _problem;
    };

    /// Puts the values in place of the file, unless that holds them already. Needs the lock. While it waits
    /// for the disk it lets others have `access`. Answers what went wrong, an empty text if nothing did; the
    /// old file then stays as it was.
    QString replace(const QVariantMap &values, std::unique_lock<std::mutex> &access);

    /// Damaged files that were kept aside since the last call.
    QStringList takeKeptPaths() { return std::exchange(_keptPaths, {}); }

  private:
    /// Tells one state of the file from another.
    struct Signature {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = 0;
        qint64 modified = 0;
        bool operator==(const Signature &) const = default;
    };
    enum class State { missing, read, damaged, unreadable };

    static std::optional<Signature> _signature(const struct stat &status);
    State _load();
    QString _acquireLock();
    void _releaseLock();
    QString _target() const;

    const QString _path;
    QVariantMap _values;
    QByteArray _content; ///< The text that `_values` was read from or written as.
    std::optional<Signature> _seen;
    State _state = State::missing;
    KVFileDescriptor _lock;
    int _lockDepth = 0;
    QStringList _keptPaths;
};
