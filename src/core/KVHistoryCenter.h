#pragma once

#include "util/KVMediaFileType.h"

#include <QDateTime>
#include <QList>
#include <QUrl>
#include <QVariantMap>

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

/// Which entries of the history changed.
struct KVHistoryChange {
    enum class Kind { inserted, removed, replacedAll };
    Kind kind;
    qsizetype first = 0; ///< Index of the first changed entry.
    qsizetype count = 0;
};

/// The list of all that was made, kept from run to run, oldest first. Changes are made on the main thread, so
/// observers run there.
class KVHistoryCenter {
  public:
    /// Made on first use from what is stored.
    static KVHistoryCenter &shared();
    KVHistoryCenter();

    QList<KVHistoryItem> historyItems() const;

    void addFile(const QUrl &url, KVMediaFileType type);
    /// Empties the list without saving.
    void clear();
    void save();

    /// Called before (`isPrior`) and after every change.
    void setObserver(std::function<void(const KVHistoryChange &change, bool isPrior)> observer);

  private:
    void _announce(const KVHistoryChange &change, bool isPrior) const;

    mutable std::recursive_mutex _lock;
    QList<KVHistoryItem> _items;
    std::function<void(const KVHistoryChange &, bool)> _observer;
};
