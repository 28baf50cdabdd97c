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

    QVariantMap valuesSeenByThisThread();
    bool commit(const Changes &changes);
    void reportDamage(const QStringList &keptPaths) const;

    std::recursive_mutex mutex; // recursive: an update may read and set other keys
    KVPreferencesFile file;
    QVariantMap valuesForThisRun;
    Changes unwritten; // what could not be written yet: lives on in memory and goes along with the next write
    std::unordered_map<std::thread::id, Batch> batches;
};

QVariantMap KVPreferences::Private::valuesSeenByThisThread() {
    QVariantMap values = file.values();
    apply(unwritten, values);
    if (const auto batch = batches.find(std::this_thread::get_id()); batch != batches.end())
        apply(batch->second.changes, values);
    return values;
}

/// Needs the mutex. Writes the changes, merged into what is on disk now.
bool KVPreferences::Private::commit(const Changes &changes) {
    for (auto change = changes.begin(); change != changes.end(); ++change)
        unwritten.insert(change.key(), change.value());

    const KVPreferencesFile::Lock lock(file);
    QString problem = lock.problem();
    if (problem.isEmpty()) {
        QVariantMap values = file.values();
        apply(unwritten, values);
        problem = file.replace(values);
    }
    if (!problem.isEmpty()) {
        KVLog("Can't write the preferences: " + problem);
        return false;
    }
    unwritten.clear();
    return true;
}

void KVPreferences::Private::reportDamage(const QStringList &keptPaths) const {
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
    QStringList keptPaths;
    {
        const std::scoped_lock lock(_p->mutex);
        if (_p->valuesForThisRun.contains(key.text)) return _p->valuesForThisRun.value(key.text);
        found = _p->valuesSeenByThisThread().value(key.text);
        keptPaths = _p->file.takeKeptPaths();
    }
    _p->reportDamage(keptPaths);
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
    QStringList keptPaths;
    {
        const std::scoped_lock lock(_p->mutex);
        const auto batch = _p->batches.find(std::this_thread::get_id());
        if (batch != _p->batches.end())
            batch->second.changes.insert(key.text, stored);
        else
            _p->commit({{key.text, stored}});
        keptPaths = _p->file.takeKeptPaths();
    }
    _p->reportDamage(keptPaths);
}

void KVPreferences::setValueForThisRun(const QVariant &value, const Key &key) {
    const std::scoped_lock lock(_p->mutex);
    _p->valuesForThisRun.insert(key.text, KVPreferencesCoding::normalized(value));
}

bool KVPreferences::perform(const std::function<void()> &changes) {
    const auto thread = std::this_thread::get_id();
    {
        const std::scoped_lock lock(_p->mutex);
        ++_p->batches[thread].depth;
    }
    changes(); // with no lock held: it may take its time or ask another thread

    bool isWritten = true;
    QStringList keptPaths;
    {
        const std::scoped_lock lock(_p->mutex);
        const auto batch = _p->batches.find(thread);
        if (--batch->second.depth > 0) return true; // the outermost one writes
        const Changes all = std::move(batch->second.changes);
        _p->batches.erase(batch);
        if (!all.isEmpty()) isWritten = _p->commit(all);
        keptPaths = _p->file.takeKeptPaths();
    }
    _p->reportDamage(keptPaths);
    return isWritten;
}

bool KVPreferences::update(const Key &key, const std::function<QVariant(const QVariant &current)> &change) {
    bool isWritten = false;
    QStringList keptPaths;
    {
        const std::scoped_lock lock(_p->mutex);
        // Without this lock (the folder is not writable) the commit says so.
        const KVPreferencesFile::Lock fileLock(_p->file);
        const QVariant current = _p->valuesSeenByThisThread().value(key.text);
        const QVariant changed = KVPreferencesCoding::normalized(change(current));
        if (const auto batch = _p->batches.find(std::this_thread::get_id()); batch != _p->batches.end())
            batch->second.changes.remove(key.text);
        isWritten = _p->commit({{key.text, changed}});
        keptPaths = _p->file.takeKeptPaths();
    }
    _p->reportDamage(keptPaths);
    return isWritten;
}

QStringList KVPreferences::allKeys() const {
    QVariantMap values;
    QStringList keptPaths;
    {
        const std::scoped_lock lock(_p->mutex);
        values = _p->valuesSeenByThisThread();
        keptPaths = _p->file.takeKeptPaths();
    }
    _p->reportDamage(keptPaths);
    QStringList keys;
    for (auto entry = values.begin(); entry != values.end(); ++entry)
        if (entry.value().isValid()) keys.append(entry.key());
    return keys;
}

QString KVPreferences::filePath() const {
    return _p->file.path();
}

void KVPreferences::setDamageReporter(std::function<void(const QString &, const QString &)> reporter) {
    const std::scoped_lock lock(SharedReporter::instance().mutex);
    SharedReporter::instance().report = std::move(reporter);
}
