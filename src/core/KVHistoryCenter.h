#pragma once

#include "kvcore/KVSerialQueue.h"
#include "util/KVMediaFileType.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QUrl>
#include <QVariantMap>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

/// A file that the program has produced. Immutable.
struct KVHistoryItem {
    QDateTime date;
    KVMediaFileType type = KVMediaFileType::none;
    QUrl url;

    /// Nothing where the dictionary is no valid entry.
    static std::optional<KVHistoryItem> fromDictionary(const QVariantMap &dictionary);
    QVariantMap dictionaryRepresentation() const;
    QString description() const;

    bool operator==(const KVHistoryItem &) const = default;
};
size_t qHash(const KVHistoryItem &item, size_t seed = 0);

/// Which entries of the history changed.
struct KVHistoryChange {
    enum class Kind { inserted, removed };
    Kind kind;
    qsizetype first = 0; ///< Index of the first changed entry.
    qsizetype count = 0;
};

/// The list of all that was made, kept from run to run, oldest first. Changes are made on the main thread, so
/// observers run there.
class KVHistoryCenter {
  public:
    /// Made on first use from what is stored. What is not saved yet is saved when the application object
    /// goes.
    static KVHistoryCenter &shared();
    KVHistoryCenter();
    ~KVHistoryCenter();
    KVHistoryCenter(const KVHistoryCenter &) = delete;
    KVHistoryCenter &operator=(const KVHistoryCenter &) = delete;

    QList<KVHistoryItem> historyItems() const;

    /// Adds the file on the main thread and returns when it is saved: for workers, before they report the end
    /// of a conversion, so that a crash after that loses nothing. Entries that come meanwhile are saved
    /// together. Called on the main thread it is `addFile`.
    void addFileAndSave(const QUrl &url, KVMediaFileType type);
    /// Also saves, on a separate thread, so that a busy disk does not block the window: at once, or a moment
    /// later if many files come quickly.
    void addFile(const QUrl &url, KVMediaFileType type);
    /// Empties the list without saving; the next `save` then empties what is stored.
    void clear();
    /// Puts entries back before all others, as after `clear`, without saving.
    void restore(const QList<KVHistoryItem> &items);
    /// Writes the list. Entries that another process stored since we last looked stay.
    void save();
    /// For who ends the program in another way than by its `main`.
    void saveWhatIsUnsaved();

    /// Called before (`isPrior`) and after every change.
    void setObserver(std::function<void(const KVHistoryChange &change, bool isPrior)> observer);

  private:
    using Clock = std::chrono::steady_clock;

    void _saveSoon();
    void _scheduleSave();
    QVariantList _listToStore(const QVariantList &stored);
    QList<KVHistoryItem> _itemsOfOthers(const QVariantList &stored) const;
    void _announce(const KVHistoryChange &change, bool isPrior) const;

    mutable std::recursive_mutex _lock;
    QList<KVHistoryItem> _items;
    QHash<KVHistoryItem, int> _ownStoredItems; ///< How often each is stored as far as this process knows.
    QVariantList _storedList;                  ///< The list that the next entries are only appended to.
    qsizetype _numberOfStored = -1;            ///< How many items it holds; -1 where it has to be built anew.
    bool _wasCleared = false;
    bool _isUnsaved = false;
    bool _isSaving = false;
    Clock::time_point _nextSave; ///< The saves that `addFile` makes keep a distance.
    std::shared_ptr<int> _life;  ///< Ends with this object.
    std::function<void(const KVHistoryChange &, bool)> _observer;
    /// One save at a time. Taken before `_lock`, which is free while the disk works.
    std::recursive_mutex _saveLock;
    KVSerialQueue _saves{QStringLiteral("com.brenholt.Kalvora.history")};
};
