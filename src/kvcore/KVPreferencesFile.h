#pragma once

#include "kvcore/KVFileDescriptor.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <sys/stat.h>

#include <optional>
#include <utility>

/// The file of a preference store: its cached content, the lock that keeps several writers apart, and the
/// atomic write. Not for several threads at once.
class KVPreferencesFile {
  public:
    explicit KVPreferencesFile(QString path);

    const QString &path() const { return _path; }

    /// What is on disk now; empty where there is no file. A damaged file is kept aside on the way.
    const QVariantMap &values();

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

    /// Puts the values in place of the file, unless that holds them already. Needs the lock. Answers what
    /// went wrong, an empty text if nothing did; the old file then stays as it was.
    QString replace(const QVariantMap &values);

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
    void _keepAside();
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
