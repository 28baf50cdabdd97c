#include "kvcore/KVPreferences.h"

#include "kvcore/KVLog.h"
#include "kvcore/KVPreferencesCoding.h"
#include "kvcore/KVPreferencesFile.h"

#include <QDateTime>
#include <QStandardPaths>

#include <cmath>
#include <thread>
#include <unordered_map>

namespace {

using Changes = QVariantMap; // an invalid value removes the key

void apply(const Changes &changes, QVariantMap &values) {
    for (auto change = changes.begin(); change != changes.end(); ++change) {
        if (change.value().isValid())
            values.insert(change.key(), change.value());
        else
            values.remove(change.key());
    }
}

using DamageReporter = std::function<void(const QString &, const QString &)>;

struct SharedReporter {
    std::mutex mutex;
    DamageReporter report;

    static SharedReporter &instance() {
        static SharedReporter instance;
        return instance;
    }
    DamageReporter get() {
        const std::scoped_lock lock(mutex);
        return report;
    }
};

std::optional<qint64> wholeNumber(const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Double: {
        const double number = value.toDouble();
        if (std::trunc(number) == number && std::abs(number) < 0x1p63) return static_cast<qint64>(number);
        return {};
    }
    default:
        return {};
    }
}

} // namespace

struct KVPreferences::Private {
    /// What one thread has set inside `perform` so far.
    struct Batch {
        int depth = 0;
        Changes changes;
    };

    explicit Private(QString path)
        : file(std::move(path)) {}

    QVariantMap valuesSeenByThisThread(std::unique_lock<std::mutex> &access);
    void refresh(std::unique_lock<std::mutex> &access);
    bool commit(const Changes &changes);
    void reportKeptPaths();

    /// One writer at a time. It waits for the disk and for other processes, and so may take its time.
    /// Recursive: an update may set other keys.
    std::recursive_mutex writing;
    /// Guards all below, but the file's lock, which the writer has. Nobody waits for the disk with it.
    std::mutex mutex;
    KVPreferencesFile file;
    QVariantMap valuesForThisRun;
    Changes unwritten; // what could not be written yet: lives on in memory and goes along with the next write
    std::unordered_map<std::thread::id, Batch> batches;
};

/// Sees to it that the file's values are those on disk; lets go of `access` meanwhile where it is damaged.
void KVPreferences::Private::refresh(std::unique_lock<std::mutex> &access) {
    if (file.refresh()) return;
    access.unlock();
    const std::scoped_lock turn(writing);
    const KVPreferencesFile::Lock lock(file);
    access.lock();
    if (lock.problem().isEmpty()) file.keepAside();
}

QVariantMap KVPreferences::Private::valuesSeenByThisThread(std::unique_lock<std::mutex> &access) {
    refresh(access);
    QVariantMap values = file.values();
    apply(unwritten, values);
    if (const auto batch = batches.find(std::this_thread::get_id()); batch != batches.end())
        apply(batch->second.changes, values);
    return values;
}

/// Writes the changes, merged into what is on disk now.
bool KVPreferences::Private::commit(const Changes &changes) {
    const std::scoped_lock turn(writing);
    std::unique_lock access(mutex);
    for (auto change = changes.begin(); change != changes.end(); ++change)
        unwritten.insert(change.key(), change.value());

    access.unlock();
    const KVPreferencesFile::Lock lock(file);
    access.lock();
    QString problem = lock.problem();
    if (problem.isEmpty()) {
        refresh(access);
        QVariantMap values = file.values();
        apply(unwritten, values);
        problem = file.replace(values, access);
    }
    if (!problem.isEmpty()) {
        KVLog("Can't write the preferences: " + problem);
        return false;
    }
    unwritten.clear();
    return true;
}

void KVPreferences::Private::reportKeptPaths() {
    QStringList keptPaths;
    {
        const std::scoped_lock access(mutex);
        keptPaths = file.takeKeptPaths();
    }
    if (keptPaths.isEmpty()) return;
    const DamageReporter report = SharedReporter::instance().get();
    if (!report) return;
    for (const QString &kept : keptPaths)
        report(file.path(), kept);
}

KVPreferences &KVPreferences::shared() {
    static KVPreferences preferences(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                                     "/kalvora/preferences.json");
    return preferences;
}

KVPreferences::KVPreferences(QString filePath)
    : _p(std::make_unique<Private>(std::move(filePath))) {}

KVPreferences::~KVPreferences() = default;

bool KVPreferences::boolean(const Key &key, bool defaultValue) const {
    const QVariant stored = value(key);
    const bool isWhole = stored.typeId() == QMetaType::Bool || stored.typeId() == QMetaType::LongLong;
    return isWhole ? stored.toLongLong() != 0 : defaultValue;
}

qint64 KVPreferences::integer(const Key &key, qint64 defaultValue) const {
    return wholeNumber(value(key)).value_or(defaultValue);
}

QVariant KVPreferences::value(const Key &key) const {
    QVariant found;
    {
        std::unique_lock access(_p->mutex);
        if (_p->valuesForThisRun.contains(key.text)) return _p->valuesForThisRun.value(key.text);
        found = _p->valuesSeenByThisThread(access).value(key.text);
    }
    _p->reportKeptPaths();
    return found;
}

QVariant KVPreferences::value(const Key &key, const QVariant &defaultValue) const {
    const QVariant stored = value(key);
    return stored.isValid() ? stored : defaultValue;
}

void KVPreferences::setBoolean(bool value, const Key &key) {
    setValue(value, key);
}

void KVPreferences::setInteger(qint64 value, const Key &key) {
    setValue(value, key);
}

void KVPreferences::setValue(const QVariant &value, const Key &key) {
    const QVariant stored = KVPreferencesCoding::normalized(value);
    {
        const std::scoped_lock access(_p->mutex);
        const auto batch = _p->batches.find(std::this_thread::get_id());
        if (batch != _p->batches.end()) {
            batch->second.changes.insert(key.text, stored);
            return;
        }
    }
    _p->commit({{key.text, stored}});
    _p->reportKeptPaths();
}

void KVPreferences::setValueForThisRun(const QVariant &value, const Key &key) {
    const std::scoped_lock access(_p->mutex);
    _p->valuesForThisRun.insert(key.text, KVPreferencesCoding::normalized(value));
}

bool KVPreferences::perform(const std::function<void()> &changes) {
    const auto thread = std::this_thread::get_id();
    {
        const std::scoped_lock access(_p->mutex);
        ++_p->batches[thread].depth;
    }
    changes(); // with no lock held: it may take its time or ask another thread

    Changes all;
    {
        const std::scoped_lock access(_p->mutex);
        Private::Batch &batch = _p->batches[thread];
        if (--batch.depth > 0) return true; // the outermost one writes
        all = std::move(batch.changes);
        _p->batches.erase(thread);
    }
    const bool isWritten = all.isEmpty() || _p->commit(all);
    _p->reportKeptPaths();
    return isWritten;
}

bool KVPreferences::update(const Key &key, const std::function<QVariant(const QVariant &current)> &change) {
    bool isWritten = false;
    {
        const std::scoped_lock turn(_p->writing);
        // Without this lock (the folder is not writable) the commit says so.
        const KVPreferencesFile::Lock fileLock(_p->file);
        std::unique_lock access(_p->mutex);
        const QVariant current = _p->valuesSeenByThisThread(access).value(key.text);
        access.unlock();
        const QVariant changed = KVPreferencesCoding::normalized(change(current));
        access.lock();
        if (const auto batch = _p->batches.find(std::this_thread::get_id()); batch != _p->batches.end())
            batch->second.changes.remove(key.text);
        access.unlock();
        isWritten = _p->commit({{key.text, changed}});
    }
    _p->reportKeptPaths();
    return isWritten;
}

QStringList KVPreferences::allKeys() const {
    QStringList keys;
    {
        std::unique_lock access(_p->mutex);
        const QVariantMap values = _p->valuesSeenByThisThread(access);
        for (auto entry = values.begin(); entry != values.end(); ++entry)
            if (entry.value().isValid()) keys.append(entry.key());
    }
    _p->reportKeptPaths();
    return keys;
}

QString KVPreferences::filePath() const {
    return _p->file.path();
}

void KVPreferences::setDamageReporter(std::function<void(const QString &, const QString &)> reporter) {
    const std::scoped_lock lock(SharedReporter::instance().mutex);
    SharedReporter::instance().report = std::move(reporter);
}
