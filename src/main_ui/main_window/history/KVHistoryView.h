#pragma once

#include "main_ui/main_window/history/KVHistoryModel.h"

#include <QListView>
#include <QWidget>

/// The history beside the queue: open, reveal, clear.
class KVHistoryView : public QWidget {
    Q_OBJECT

  public:
    explicit KVHistoryView(QWidget *parent = nullptr);

  Q_SIGNALS:
    void openRequested(const QUrl &url);
    void revealRequested(const QUrl &url);

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    void _clear();
    void _showMenu(const QPoint &position);

    KVHistoryModel *_model;
    QListView *_list;
};
