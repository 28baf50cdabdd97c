#include "main_ui/main_window/table_view/KVConversionRowDelegate.h"
#include "main_ui/main_window/table_view/KVQueueTableWidget.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

// The drags of rows in the queue table.

namespace {

// The type of a dragged row, which nothing but this table takes.
const QString queueTableViewDragType = "kZRQueueTableViewDragType";
// The paths of its files, for whoever knows the type.
const QString conversionTableRowViewPboardType = "KVConversionTableRowViewPboardType";

constexpr int edgeThatScrolls = 28;

} // namespace

/// The selected rows of the same type go along with a selected row.
KVRowSelection::List KVQueueTableWidget::_rowsToDrag(const QModelIndex &index) const {
    if (!selectionModel()->isSelected(index)) return {};
    QModelIndexList indexes = selectedIndexes();
    indexes.removeIf([&](const QModelIndex &other) {
        return _queueModel->mediaType(other) != _queueModel->mediaType(index);
    });
    return _queueModel->selection(indexes).conversions();
}

void KVQueueTableWidget::startDrag(Qt::DropActions) {
    const QModelIndex index = _pressed;
    if (!index.isValid() || !_queueModel->controller().canDragRow(index.row())) return;
    auto *payload = new QMimeData;
    payload->setData(queueTableViewDragType, QByteArray::number(index.row()));
    payload->setData(conversionTableRowViewPboardType, index.data(Qt::ToolTipRole).toString().toUtf8());
    auto *drag = new QDrag(this); // Qt deletes it when the drag ends
    drag->setMimeData(payload);
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    drag->setPixmap(KVConversionRowDelegate::dragImage(option, index));
    drag->setHotSpot({-12, -12}); // beside the mouse: the place where the row would go stays in sight
    _queueModel->draggedRow = index.row();
    _queueModel->draggedConversions = _rowsToDrag(index);
    viewport()->update();
    drag->exec(Qt::MoveAction);
    _queueModel->draggedRow = -1;
    _queueModel->draggedConversions.clear();
    _dropTarget = {};
    _pressed = QModelIndex();
    viewport()->update();
}

KVQueueTableWidget::DropTarget KVQueueTableWidget::_dropTargetAt(const QPoint &point) const {
    const QModelIndex index = indexAt(point);
    if (!index.isValid() && point.y() > 0) return {_queueModel->rowCount(), KVDropOperation::above};
    if (!index.isValid()) return {};
    // On the heading of another group is behind the last row of the group above it.
    const bool isElsewhere =
        _queueModel->mediaType(index) != _queueModel->mediaType(_queueModel->index(_queueModel->draggedRow));
    if (_queueModel->isGroup(index) && isElsewhere) return {index.row(), KVDropOperation::above};
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
    const bool isValid = _canDrop(target);
    _explainRefusal(isValid ? DropTarget{} : target, event->position().toPoint());
    _dropTarget = isValid ? target : DropTarget{};
    event->setAccepted(isValid);
    _scrollNearEdges(event->position().toPoint().y());
    viewport()->update();
}

bool KVQueueTableWidget::_canDrop(const DropTarget &target) const {
    const auto &controller = _queueModel->controller();
    const bool isAtEnd =
        target.operation == KVDropOperation::above && controller.validateDropAtEndOfGroup(target.row);
    return isAtEnd || controller.validateDrop(target.row, target.operation);
}

/// Shows beside the mouse why a row does not take the dragged one.
void KVQueueTableWidget::_explainRefusal(const DropTarget &target, const QPoint &point) {
    const bool isMerge = target.operation == KVDropOperation::on && target.row >= 0 &&
                         !_queueModel->isDragged(_queueModel->index(target.row));
    const QString reason = isMerge ? _queueModel->controller().reasonAgainstMerge(target.row) : QString();
    if (reason.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(viewport()->mapToGlobal(point), reason, viewport());
}

void KVQueueTableWidget::_scrollNearEdges(int y) {
    QScrollBar *bar = verticalScrollBar();
    if (y < edgeThatScrolls) bar->setValue(bar->value() - edgeThatScrolls);
    if (y > viewport()->height() - edgeThatScrolls) bar->setValue(bar->value() + edgeThatScrolls);
}

void KVQueueTableWidget::dragLeaveEvent(QDragLeaveEvent *) {
    _dropTarget = {};
    viewport()->update();
}

void KVQueueTableWidget::dropEvent(QDropEvent *event) {
    _dropTarget = {};
    viewport()->update();
    // Rows may have come and gone since the last movement of the mouse.
    const DropTarget target = _dropTargetAt(event->position().toPoint());
    auto &controller = _queueModel->controller();
    const bool isValid = event->mimeData()->hasFormat(queueTableViewDragType) && _canDrop(target);
    event->setAccepted(isValid && controller.acceptDrop(target.row, target.operation));
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
