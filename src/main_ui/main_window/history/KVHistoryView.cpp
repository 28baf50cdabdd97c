#include "main_ui/main_window/history/KVHistoryView.h"

#include "core/KVUndoStack.h"
#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/history/KVHistoryItemDelegate.h"

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

KVHistoryView::KVHistoryView(QWidget *parent)
    : QWidget(parent)
    , _model(new KVHistoryModel(this))
    , _list(new QListView) {
    const auto localized = [](const char *key) { return KVLocalizationCenter::localized(key); };
    _list->setModel(_model);
    _list->setAccessibleName(localized("History"));
    _list->setFrameShape(QFrame::NoFrame);
    _list->setTextElideMode(Qt::ElideMiddle);
    _list->setUniformItemSizes(true);
    _list->setItemDelegate(new KVHistoryItemDelegate(_list));
    _list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(_list, &QListView::customContextMenuRequested, this, &KVHistoryView::_showMenu);
    connect(_list, &QListView::activated, this,
            [this](const QModelIndex &index) { Q_EMIT openRequested(_model->url(index)); });

    _list->viewport()->installEventFilter(this);

    auto *clear = new QPushButton(localized("Clear History"));
    connect(clear, &QPushButton::clicked, this, &KVHistoryView::_clear);
    const auto enable = [this, clear] { clear->setEnabled(_model->rowCount() > 0); };
    connect(_model, &QAbstractItemModel::rowsInserted, this, enable);
    connect(_model, &QAbstractItemModel::modelReset, this, enable);
    enable();

    auto *title = new QLabel(localized("History"));
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(_list, 1);
    layout->addWidget(clear, 0, Qt::AlignLeft);
    setMinimumWidth(220);
}

void KVHistoryView::_clear() {
    KVHistoryCenter &center = KVHistoryCenter::shared();
    const auto items = center.historyItems();
    center.clear();
    center.save();
    KVUndoStack::shared().push({.title = KVLocalizationCenter::localized("Clear History"),
                                .message = KVLocalizationCenter::localized("History cleared"),
                                .undo = [items] {
                                    KVHistoryCenter::shared().restore(items);
                                    KVHistoryCenter::shared().save();
                                    return true;
                                }});
}

void KVHistoryView::_showMenu(const QPoint &position) {
    const QModelIndex index = _list->indexAt(position);
    if (!index.isValid()) return;
    const QUrl url = _model->url(index);
    const bool isThere = QFileInfo::exists(url.toLocalFile());
    QMenu menu;
    menu.addAction(KVLocalizationCenter::localized("Open"), this, [this, url] { Q_EMIT openRequested(url); })
        ->setEnabled(isThere);
    menu.addAction(KVLocalizationCenter::localized("Show in Finder"), this,
                   [this, url] { Q_EMIT revealRequested(url); })
        ->setEnabled(isThere);
    menu.exec(_list->viewport()->mapToGlobal(position));
}

bool KVHistoryView::eventFilter(QObject *watched, QEvent *event) {
    const bool isKey = event->type() == QEvent::ContextMenu &&
                       static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard;
    if (watched != _list->viewport() || !isKey) return QWidget::eventFilter(watched, event);
    _showMenu(_list->visualRect(_list->currentIndex()).center());
    return true;
}
