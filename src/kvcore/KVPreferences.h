#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

/// The flat key-value store of all settings: booleans, whole and real numbers, texts, data (QByteArray),
/// dates (QDateTime) and lists and dictionaries of such. One JSON file in the user's configuration folder.
///
/// Several processes may use the file at once: a change re-reads it under a lock, alters its own keys only
/// and renames the new file into place (written and synced first); a read sees what another process wrote. A
/// file that cannot be read as a dictionary is kept aside under a new name and reported through
/// `damageReporter`, never overwritten. A value of another type than the reader expects counts as missing.
/// All operations may be called from any thread. A read never waits for a write: it sees the new value at
/// once, while the disk is still at work.
class KVPreferences {
  public:
    struct Key {
        QString text;
        bool operator==(const Key &) const = default;
    };

    /// The store of the program: "kalvora/preferences.json" in the user's configuration folder.
    static KVPreferences &shared();

    explicit KVPreferences(QString filePath);
    ~KVPreferences();

    bool boolean(const Key &key, bool defaultValue) const;
    qint64 integer(const Key &key, qint64 defaultValue) const;
    /// The stored value, an invalid variant where there is none.
    QVariant value(const Key &key) const;
    QVariant value(const Key &key, const QVariant &defaultValue) const;

    void setBoolean(bool value, const Key &key);
    void setInteger(qint64 value, const Key &key);
    /// An invalid variant removes the key.
    void setValue(const QVariant &value, const Key &key);

    /// Stands before the stored value as long as this process lives, and is never written: what a command
    /// line says for one run.
    void setValueForThisRun(const QVariant &value, const Key &key);

    /// Runs `changes` and writes all that it set at once, in one write. A set outside of this is a write of
    /// its own. Answers false, and logs why, if the file could not be written; the values then live on in
    /// memory.
    bool perform(const std::function<void()> &changes);

    /// Changes one value that is built from its present form (a list that several processes append to):
    /// `change` gets the value as it is on disk now and answers the new one, all under the store's lock.
    bool update(const Key &key, const std::function<QVariant(const QVariant &current)> &change);

    /// Keys that hold a value, sorted.
    QStringList allKeys() const;

    QString filePath() const;

    /// Told, once each, that a damaged file was kept aside under `keptPath`. Any thread.
    static void setDamageReporter(std::function<void(const QString &path, const QString &keptPath)> reporter);

  private:
    struct Private;
    std::unique_ptr<Private> _p;
};
