#include "core/KVHistoryCenter.h"

#include "kvcore/KVBookmark.h"
#include "kvcore/KVFatalError.h"
#include "kvcore/KVMainThread.h"
#include "platform/KVFileManager.h"
#include "util/KVPreferenceKeys.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {

const QString typeKey = "ZRHistoryItemType";
const QString urlDataKey = "ZRHistoryItemURLData";
const QString dateKey = "ZRHistoryItemDate";

/// After a save, as many times its own duration pass before the next one that nobody asked for.
constexpr int restAfterSave = 50;
constexpr std::chrono::seconds longestRestAfterSave{10};

std::optional<QUrl> urlFromStored(const QVariant &stored) {
    if (stored.typeId() == QMetaType::QByteArray) return KVBookmark::resolve(stored.toByteArray());
    if (stored.typeId() != QMetaType::QString) return std::nullopt;
    const QString text = stored.toString();
    if (!text.startsWith("file://")) return QUrl::fromLocalFile(text);
    const QUrl url(text, QUrl::StrictMode);
    if (!url.isValid()) KVFatalError("The history holds an invalid URL: " + text);
    return url;
}

QList<KVHistoryItem> itemsFromStored(const QVariantList &stored) {
    QList<KVHistoryItem> items;
    for (const QVariant &entry : stored)
        if (const auto item = KVHistoryItem::fromDictionary(entry.toMap())) items += *item;
    return items;
}

KVHistoryItem storedForm(const KVHistoryItem &item) {
    return KVHistoryItem::fromDictionary(item.dictionaryRepresentation()).value_or(item);
}

/// True where one is an unchanged copy of the other; lists that merely hold the same may count as different.
bool areSame(const QVariantList &one, const QVariantList &other) {
    return one.constData() == other.constData() && one.size() == other.size();
}

QHash<KVHistoryItem, int> counted(const QList<KVHistoryItem> &items) {
    QHash<KVHistoryItem, int> counts;
    for (const auto &item : items)
        ++counts[item];
    return counts;
}

} // namespace

// An entry

std::optional<KVHistoryItem> KVHistoryItem::fromDictionary(const QVariantMap &dictionary) {
    const int rawType = dictionary.value(typeKey).toInt();
    if (rawType < 1 || rawType > 4) return std::nullopt;
    const auto url = urlFromStored(dictionary.value(urlDataKey));
    const QVariant date = dictionary.value(dateKey);
    if (!url || date.typeId() != QMetaType::QDateTime) return std::nullopt;
    return KVHistoryItem{
        .date = date.toDateTime(), .type = static_cast<KVMediaFileType>(rawType), .url = *url};
}

QVariantMap KVHistoryItem::dictionaryRepresentation() const {
    const auto bookmark = KVBookmark::data(url);
    return {{typeKey, static_cast<int>(type)},
            {urlDataKey, bookmark ? QVariant(*bookmark) : QVariant(url.toLocalFile())},
            {dateKey, date}};
}

QString KVHistoryItem::description() const {
    return QString("{\n\tType: %1\n\tDate: %2\n\tFile Path: %3\n}")
        .arg(KVMediaFileTypes::localizedName(type), date.toString(Qt::ISODate),
             url.isLocalFile() ? url.toLocalFile() : "nil");
}

size_t qHash(const KVHistoryItem &item, size_t seed) {
    return qHashMulti(seed, item.date, static_cast<int>(item.type), item.url);
}

// The list

KVHistoryCenter &KVHistoryCenter::shared() {
    // Never destroyed: a worker that is still alive when the process exits may add a file.
    static KVHistoryCenter &center = *new KVHistoryCenter;
    // With the application object: behind it, dates can no longer be written.
    static const bool isRegistered = (qAddPostRoutine([] { center.saveWhatIsUnsaved(); }), true);
    static_cast<void>(isRegistered);
    return center;
}

KVHistoryCenter::KVHistoryCenter()
    : _life(std::make_shared<int>()) {
    _storedList = KVPreferences::shared().value(KVPreferenceKeys::HistoryCenterItems).toList();
    const auto stored = itemsFromStored(_storedList);
    _ownStoredItems = counted(stored);
    for (const auto &item : stored)
        if (KVFileManager::isReachable(item.url)) _items += item;
    if (_items.size() == _storedList.size()) _numberOfStored = _items.size();
}

KVHistoryCenter::~KVHistoryCenter() {
    saveWhatIsUnsaved();
}

QList<KVHistoryItem> KVHistoryCenter::historyItems() const {
    const std::scoped_lock lock(_lock);
    return _items;
}

void KVHistoryCenter::addFile(const QUrl &url, KVMediaFileType type) {
    const std::scoped_lock lock(_lock);
    const KVHistoryChange change{.kind = KVHistoryChange::Kind::inserted, .first = _items.size(), .count = 1};
    _announce(change, true);
    _items += KVHistoryItem{.date = QDateTime::currentDateTimeUtc(), .type = type, .url = url};
    _announce(change, false);
    _saveSoon();
}

void KVHistoryCenter::addFileAndSave(const QUrl &url, KVMediaFileType type) {
    KVMainThread::syncOrNow([&] { addFile(url, type); });
    if (!KVMainThread::isCurrent()) saveWhatIsUnsaved();
}

/// Every save writes the whole list. For a long one that takes a while, which has to stay small beside the
/// work itself.
void KVHistoryCenter::_saveSoon() {
    if (!std::exchange(_isUnsaved, true) && !_isSaving) _scheduleSave();
}

void KVHistoryCenter::_scheduleSave() {
    const auto saveInBackground = [this] { _saves.async([this] { saveWhatIsUnsaved(); }); };
    const std::chrono::duration<double> rest = _nextSave - Clock::now();
    if (rest.count() <= 0) return saveInBackground();
    KVMainThread::after(rest.count(), [saveInBackground, life = std::weak_ptr(_life)] {
        if (!life.expired()) saveInBackground();
    });
}

void KVHistoryCenter::saveWhatIsUnsaved() {
    const std::scoped_lock turn(_saveLock); // behind a save that is under way
    {
        const std::scoped_lock lock(_lock);
        if (!_isUnsaved) return;
    }
    save();
}

void KVHistoryCenter::clear() {
    const std::scoped_lock lock(_lock);
    const KVHistoryChange change{.kind = KVHistoryChange::Kind::removed, .first = 0, .count = _items.size()};
    _announce(change, true);
    _items.clear();
    _wasCleared = true;
    _numberOfStored = -1;
    _announce(change, false);
}

void KVHistoryCenter::restore(const QList<KVHistoryItem> &items) {
    if (items.isEmpty()) return;
    const std::scoped_lock lock(_lock);
    const KVHistoryChange change{.kind = KVHistoryChange::Kind::inserted, .first = 0, .count = items.size()};
    _announce(change, true);
    _items = items + _items;
    _numberOfStored = -1;
    _announce(change, false);
}

void KVHistoryCenter::save() {
    const std::scoped_lock turn(_saveLock);
    const auto begin = Clock::now();
    auto &preferences = KVPreferences::shared();
    preferences.update(KVPreferenceKeys::HistoryCenterItems, [&](const QVariant &current) {
        const std::scoped_lock lock(_lock);
        auto list = _listToStore(current.toList());
        _numberOfStored = _items.size();
        _wasCleared = false;
        _isUnsaved = false;
        _isSaving = true;
        return list;
    });
    const auto stored = preferences.value(KVPreferenceKeys::HistoryCenterItems).toList();
    const auto end = Clock::now();

    const std::scoped_lock lock(_lock);
    _storedList = stored;
    _isSaving = false;
    _nextSave = end + std::min<Clock::duration>((end - begin) * restAfterSave, longestRestAfterSave);
    if (_isUnsaved) _scheduleSave();
}

/// `stored` is what stands in the store now, perhaps with entries of other processes.
QVariantList KVHistoryCenter::_listToStore(const QVariantList &stored) {
    QVariantList list;
    if (_numberOfStored >= 0 && areSame(stored, _storedList)) {
        list = stored;
        for (const auto &item : _items.sliced(_numberOfStored)) {
            list += item.dictionaryRepresentation();
            ++_ownStoredItems[storedForm(item)];
        }
        return list;
    }
    QList<KVHistoryItem> own, all;
    std::ranges::transform(_items, std::back_inserter(own), storedForm);
    std::ranges::merge(_itemsOfOthers(stored), own, std::back_inserter(all), {}, &KVHistoryItem::date,
                       &KVHistoryItem::date);
    for (const auto &item : all)
        list += item.dictionaryRepresentation();
    _ownStoredItems = counted(own);
    return list;
}

/// What is stored and was neither loaded nor written by this process: another one has appended it.
QList<KVHistoryItem> KVHistoryCenter::_itemsOfOthers(const QVariantList &stored) const {
    if (_wasCleared) return {};
    auto items = itemsFromStored(stored);
    auto own = _ownStoredItems;
    items.removeIf([&](const auto &item) { return own[item]-- > 0; });
    return items;
}

void KVHistoryCenter::setObserver(std::function<void(const KVHistoryChange &change, bool isPrior)> observer) {
    const std::scoped_lock lock(_lock);
    _observer = std::move(observer);
}

void KVHistoryCenter::_announce(const KVHistoryChange &change, bool isPrior) const {
    if (_observer) _observer(change, isPrior);
}
