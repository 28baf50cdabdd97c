#pragma once

#include "core/KVHistoryCenter.h"

#include <QAbstractListModel>

/// The history, newest first. Follows KVHistoryCenter, whose only observer it is. Main thread.
class KVHistoryModel : public QAbstractListModel {
    Q_OBJECT

  public:
    enum Role {
        urlRole = Qt::UserRole,
        detailsRole, ///< The folder and the day.
    };

    explicit KVHistoryModel(QObject *parent = nullptr);
    ~KVHistoryModel() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    /// The output file of a row.
    QUrl url(const QModelIndex &index) const;

  private:
    void _historyChanged(const KVHistoryChange &change, bool isPrior);

    QList<KVHistoryItem> _items; ///< As the views know it.
};
