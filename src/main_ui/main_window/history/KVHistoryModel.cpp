#include "main_ui/main_window/history/KVHistoryModel.h"

#include "platform/KVFileManager.h"

#include <QLocale>

KVHistoryModel::KVHistoryModel(QObject *parent)
    : QAbstractListModel(parent)
    , _items(KVHistoryCenter::shared().historyItems()) {
    KVHistoryCenter::shared().setObserver(
        [this](const KVHistoryChange &change, bool isPrior) { _historyChanged(change, isPrior); });
}

KVHistoryModel::~KVHistoryModel() {
    KVHistoryCenter::shared().setObserver({});
}

int KVHistoryModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(_items.size());
}

QVariant KVHistoryModel::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const KVHistoryItem &item = _items.at(_items.size() - 1 - index.row());
    switch (role) {
    case Qt::DisplayRole:
        return KVFileManager::lastPathComponent(item.url);
    case Qt::ToolTipRole:
        return item.url.toLocalFile() + "\n" +
               QLocale().toString(item.date.toLocalTime(), QLocale::ShortFormat);
    case detailsRole:
        return QStringLiteral("%1 \u2013 %2")
            .arg(QLocale().toString(item.date.toLocalTime().date(), QLocale::ShortFormat),
                 KVFileManager::lastPathComponent(KVFileManager::deletingLastPathComponent(item.url)));
    case urlRole:
        return item.url;
    default:
        return {};
    }
}

QUrl KVHistoryModel::url(const QModelIndex &index) const {
    return data(index, urlRole).toUrl();
}

void KVHistoryModel::_historyChanged(const KVHistoryChange &change, bool isPrior) {
    if (isPrior) return;
    const bool isAppended = change.kind == KVHistoryChange::Kind::inserted && change.first == _items.size();
    if (isAppended) {
        beginInsertRows({}, 0, int(change.count) - 1);
        _items = KVHistoryCenter::shared().historyItems();
        endInsertRows();
        return;
    }
    beginResetModel();
    _items = KVHistoryCenter::shared().historyItems();
    endResetModel();
}
