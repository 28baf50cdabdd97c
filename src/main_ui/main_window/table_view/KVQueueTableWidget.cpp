#include "main_ui/main_window/table_view/KVQueueTableWidget.h"

#include "main_ui/main_window/table_view/KVConversionRowDelegate.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

namespace {

// The type of a dragged row, which nothing but this table takes.
const QString queueTableViewDragType = "kZRQueueTableViewDragType";

} // namespace

KVQueueTableWidget::KVQueueTableWidget(QWidget *parent)
    : QAbstractItemView(parent) {
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false); // we draw our own
    setAutoScroll(true);
    setMouseTracking(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setItemDelegate(new KVConversionRowDelegate(this));
    setAccessibleName(tr("Conversions"));
}

void KVQueueTableWidget::setQueueModel(KVQueueTableModel *model) {
    _queueModel = model;
    setModel(model);
    const auto relayout = [this] {
        updateGeometries();
        viewport()->update();
    };
    connect(model, &QAbstractItemModel::rowsInserted, this, relayout);
    connect(model, &QAbstractItemModel::rowsRemoved, this, relayout);
    connect(model, &QAbstractItemModel::rowsMoved, this, relayout);
    connect(model, &QAbstractItemModel::modelReset, this, relayout);
}

int KVQueueTableWidget::_heightOf(int row) const {
    return _queueModel->isGroup(_queueModel->index(row)) ? KVQueueTableViewController::groupRowHeight
                                                         : KVQueueTableViewController::conversionRowHeight;
}

int KVQueueTableWidget::_topOf(int row) const {
    constexpr int conversionHeight = KVQueueTableViewController::conversionRowHeight;
    constexpr int difference = conversionHeight - KVQueueTableViewController::groupRowHeight;
    return row * conversionHeight - _queueModel->groupRowsBefore(row) * difference;
}

int KVQueueTableWidget::_contentHeight() const {
    return _queueModel ? _topOf(_queueModel->rowCount()) : 0;
}

QRect KVQueueTableWidget::visualRect(const QModelIndex &index) const {
    if (!index.isValid()) return {};
    return {0, _topOf(index.row()) - verticalOffset(), viewport()->width(), _heightOf(index.row())};
}

QModelIndex KVQueueTableWidget::indexAt(const QPoint &point) const {
    if (!_queueModel) return {};
    const int y = point.y() + verticalOffset();
    if (y < 0 || y >= _contentHeight()) return {};
    int first = 0;
    int last = _queueModel->rowCount() - 1;
    while (first < last) {
        const int middle = (first + last + 1) / 2;
        if (_topOf(middle) <= y)
            first = middle;
        else
            last = middle - 1;
    }
    return _queueModel->index(first);
}

void KVQueueTableWidget::scrollTo(const QModelIndex &index, ScrollHint hint) {
    if (!index.isValid()) return;
    const QRect rect = visualRect(index);
    QScrollBar *bar = verticalScrollBar();
    if (hint == PositionAtTop || rect.top() < 0)
        bar->setValue(bar->value() + rect.top());
    else if (hint == PositionAtBottom || rect.bottom() >= viewport()->height())
        bar->setValue(bar->value() + rect.bottom() - viewport()->height() + 1);
}

QModelIndex KVQueueTableWidget::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    const int rows = _queueModel ? _queueModel->rowCount() : 0;
    if (rows == 0) return {};
    const int page = std::max(1, viewport()->height() / KVQueueTableViewController::conversionRowHeight);
    const int current = currentIndex().isValid() ? currentIndex().row() : -1;
    const auto target = [&] {
        switch (action) {
        case MoveUp:
        case MovePrevious:
        case MoveLeft:
            return current - 1;
        case MoveDown:
        case MoveNext:
        case MoveRight:
            return current + 1;
        case MovePageUp:
            return current - page;
        case MovePageDown:
            return current + page;
        case MoveHome:
            return 0;
        case MoveEnd:
            return rows - 1;
        }
        return current;
    };
    return _queueModel->index(std::clamp(target(), 0, rows - 1));
}

int KVQueueTableWidget::verticalOffset() const {
    return verticalScrollBar()->value();
}

void KVQueueTableWidget::updateGeometries() {
    QScrollBar *bar = verticalScrollBar();
    bar->setRange(0, std::max(0, _contentHeight() - viewport()->height()));
    bar->setPageStep(viewport()->height());
    bar->setSingleStep(KVQueueTableViewController::conversionRowHeight);
    QAbstractItemView::updateGeometries();
}

void KVQueueTableWidget::paintEvent(QPaintEvent *event) {
    if (!_queueModel) return;
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QPoint mouse = viewport()->mapFromGlobal(QCursor::pos());
    for (QModelIndex index = indexAt(event->rect().topLeft()); index.isValid();
         index = index.siblingAtRow(index.row() + 1)) {
        option.rect = visualRect(index);
        if (option.rect.top() > event->rect().bottom()) break;
        option.state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
        option.state.setFlag(QStyle::State_MouseOver, option.rect.contains(mouse) && underMouse());
        option.state.setFlag(QStyle::State_Sunken, index == _pressed);
        itemDelegateForIndex(index)->paint(&painter, option, index);
    }
    if (_dropTarget.row >= 0) _paintDropTarget(painter);
}

void KVQueueTableWidget::_paintDropTarget(QPainter &painter) const {
    const int top = _topOf(_dropTarget.row) - verticalOffset();
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    if (_dropTarget.operation == KVDropOperation::above)
        painter.drawLine(8, top, viewport()->width() - 8, top);
    else
        painter.drawRoundedRect(QRect(4, top + 1, viewport()->width() - 8, _heightOf(_dropTarget.row) - 2), 4,
                                4);
}

void KVQueueTableWidget::_activate(const QModelIndex &index, const QPoint &point) {
    // What is asked for may remove the row: nothing looks at it afterwards.
    const QRect rect = visualRect(index);
    const QRect preset = KVConversionRowDelegate::presetRect(rect);
    const QRect thumbnail = KVConversionRowDelegate::thumbnailRect(rect);
    if (_queueModel->isGroup(index)) {
        if (preset.contains(point))
            Q_EMIT presetMenuRequested(index, viewport()->mapToGlobal(preset.bottomLeft()));
    } else if (KVConversionRowDelegate::stopRect(rect).contains(point)) {
        Q_EMIT stopButtonPressed(index);
    } else if (thumbnail.contains(point)) {
        Q_EMIT rowMenuRequested(index, viewport()->mapToGlobal(thumbnail.bottomLeft()));
    }
}

void KVQueueTableWidget::mousePressEvent(QMouseEvent *event) {
    QAbstractItemView::mousePressEvent(event);
    _pressed = event->button() == Qt::LeftButton ? indexAt(event->pos()) : QModelIndex();
    viewport()->update();
}

void KVQueueTableWidget::mouseReleaseEvent(QMouseEvent *event) {
    const QModelIndex pressed = _pressed;
    _pressed = QModelIndex();
    viewport()->update();
    QAbstractItemView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && pressed.isValid() && indexAt(event->pos()) == pressed)
        _activate(pressed, event->pos());
}

void KVQueueTableWidget::keyPressEvent(QKeyEvent *event) {
    const QModelIndex index = currentIndex();
    const bool isMenuKey = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!index.isValid() || (!isMenuKey && event->key() != Qt::Key_Space && event->key() != Qt::Key_Delete)) {
        QAbstractItemView::keyPressEvent(event);
        return;
    }
    const QRect rect = visualRect(index);
    const QPoint below = viewport()->mapToGlobal(KVConversionRowDelegate::thumbnailRect(rect).bottomLeft());
    if (_queueModel->isGroup(index))
        Q_EMIT presetMenuRequested(
            index, viewport()->mapToGlobal(KVConversionRowDelegate::presetRect(rect).bottomLeft()));
    else if (isMenuKey)
        Q_EMIT rowMenuRequested(index, below);
    else if (event->key() == Qt::Key_Space)
        Q_EMIT stopButtonPressed(index);
    else
        _queueModel->tableRow(index)->cancelConversion();
}

void KVQueueTableWidget::contextMenuEvent(QContextMenuEvent *event) {
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid()) return;
    const QPoint position = isKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
    if (_queueModel->isGroup(index))
        Q_EMIT presetMenuRequested(index, position);
    else
        Q_EMIT rowMenuRequested(index, position);
}

void KVQueueTableWidget::startDrag(Qt::DropActions) {
    const QModelIndex index = _pressed;
    if (!index.isValid() || !_queueModel->controller().canDragRow(index.row())) return;
    auto *payload = new QMimeData;
    payload->setData(queueTableViewDragType, QByteArray::number(index.row()));
    auto *drag = new QDrag(this); // Qt deletes it when the drag ends
    drag->setMimeData(payload);
    drag->setPixmap(viewport()->grab(visualRect(index)));
    drag->setHotSpot({20, KVQueueTableViewController::conversionRowHeight / 2});
    _queueModel->draggedRow = index.row();
    drag->exec(Qt::MoveAction);
    _queueModel->draggedRow = -1;
    _dropTarget = {};
    _pressed = QModelIndex();
    viewport()->update();
}

KVQueueTableWidget::DropTarget KVQueueTableWidget::_dropTargetAt(const QPoint &point) const {
    const QModelIndex index = indexAt(point);
    if (!index.isValid()) return {};
    // The outer thirds of a row are the gaps above and below it, the middle is the row itself.
    const QRect rect = visualRect(index);
    const int third = rect.height() / 3;
    if (point.y() < rect.top() + third) return {index.row(), KVDropOperation::above};
    if (point.y() > rect.bottom() - third) return {index.row() + 1, KVDropOperation::above};
    return {index.row(), KVDropOperation::on};
}

void KVQueueTableWidget::dragEnterEvent(QDragEnterEvent *event) {
    if (event->mimeData()->hasFormat(queueTableViewDragType))
        event->acceptProposedAction();
    else
        event->ignore(); // files: the window takes them
}

void KVQueueTableWidget::dragMoveEvent(QDragMoveEvent *event) {
    if (!event->mimeData()->hasFormat(queueTableViewDragType)) {
        event->ignore();
        return;
    }
    const DropTarget target = _dropTargetAt(event->position().toPoint());
    const bool isValid =
        target.row >= 0 && _queueModel->controller().validateDrop(target.row, target.operation);
    _dropTarget = isValid ? target : DropTarget{};
    event->setAccepted(isValid);
    viewport()->update();
}

void KVQueueTableWidget::dragLeaveEvent(QDragLeaveEvent *) {
    _dropTarget = {};
    viewport()->update();
}

void KVQueueTableWidget::dropEvent(QDropEvent *event) {
    const DropTarget target = std::exchange(_dropTarget, {});
    viewport()->update();
    if (!event->mimeData()->hasFormat(queueTableViewDragType) || target.row < 0) {
        event->ignore();
        return;
    }
    event->setAccepted(_queueModel->controller().acceptDrop(target.row, target.operation));
}
