#include "main_ui/main_window/table_view/KVQueueTableWidget.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVLook.h"
#include "main_ui/main_window/table_view/KVConversionRowDelegate.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QVariantAnimation>
#include <QWindow>

#include <algorithm>

KVQueueTableWidget::KVQueueTableWidget(QWidget *parent)
    : QAbstractItemView(parent) {
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAcceptDrops(true);
    setDropIndicatorShown(false); // we draw our own
    setAutoScroll(true);
    setMouseTracking(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setItemDelegate(new KVConversionRowDelegate(this));
    setAccessibleName(KVLocalizationCenter::localized("Conversions"));
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
    connect(model, &KVQueueTableModel::conversionFinished, this, &KVQueueTableWidget::_glow);
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

void KVQueueTableWidget::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) {
    // Who removes row after row with the keyboard goes on with the next one of the group, or with the one
    // above.
    const int current = currentIndex().row();
    if (current >= start && current <= end) {
        const QModelIndex next = _queueModel->index(end + 1);
        const bool goesOn = next.isValid() && !_queueModel->isGroup(next);
        const QModelIndex neighbour = goesOn ? next : _queueModel->index(start - 1);
        const auto ranges = selectionModel()->selection();
        const bool areMoreSelected = ranges.size() > 1 || (ranges.size() == 1 && ranges.first().height() > 1);
        selectionModel()->setCurrentIndex(neighbour, areMoreSelected ? QItemSelectionModel::NoUpdate
                                                                     : QItemSelectionModel::ClearAndSelect);
    }
    QAbstractItemView::rowsAboutToBeRemoved(parent, start, end);
}

void KVQueueTableWidget::paintEvent(QPaintEvent *event) {
    if (!_queueModel) return;
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    for (QModelIndex index = indexAt(event->rect().topLeft()); index.isValid();
         index = index.siblingAtRow(index.row() + 1)) {
        option.rect = visualRect(index);
        if (option.rect.top() > event->rect().bottom()) break;
        _paintRow(painter, option, index);
    }
    if (_dropTarget.row >= 0) _paintDropTarget(painter);
}

void KVQueueTableWidget::_paintRow(QPainter &painter, QStyleOptionViewItem &option,
                                   const QModelIndex &index) const {
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    option.state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
    option.state.setFlag(QStyle::State_MouseOver, index == _hovered);
    option.state.setFlag(QStyle::State_Sunken, index == _pressed && index == _hovered);
    if (const double glow = _glows.value(index); glow > 0) {
        QColor color = KVConversionRowDelegate::outcomeColor(index, palette());
        color.setAlphaF(float(0.3 * glow));
        painter.fillRect(option.rect, color);
    }
    constexpr double opacityOfDraggedRow = 0.4;
    painter.setOpacity(_queueModel->isDragged(index) ? opacityOfDraggedRow : 1);
    itemDelegateForIndex(index)->paint(&painter, option, index);
    painter.setOpacity(1);
}

void KVQueueTableWidget::_glow(const QModelIndex &index) {
    const int duration = 2 * style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    if (duration <= 0 || !isVisible()) return;
    auto *animation = new QVariantAnimation(this);
    animation->setStartValue(1.0);
    animation->setEndValue(0.0);
    animation->setDuration(duration);
    connect(animation, &QVariantAnimation::valueChanged, this,
            [this, row = QPersistentModelIndex(index)](const QVariant &value) {
                if (!row.isValid()) return;
                _glows.insert(row, value.toDouble());
                viewport()->update(visualRect(row));
            });
    connect(animation, &QVariantAnimation::finished, this,
            [this, row = QPersistentModelIndex(index)] { _glows.remove(row); });
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

QModelIndex KVQueueTableWidget::_buttonAt(const QPoint &point) const {
    const QModelIndex index = indexAt(point);
    const bool isOnButton =
        index.isValid() && KVConversionRowDelegate::buttonRect(index, visualRect(index)).contains(point);
    return isOnButton ? index : QModelIndex();
}

void KVQueueTableWidget::_activate(const QModelIndex &index, const QPoint &point) {
    // What is asked for may remove the row: nothing looks at it afterwards.
    if (_isSignAt(point)) {
        Q_EMIT detailsRequested(index);
    } else if (_buttonAt(point) == index) {
        _pressButton(index);
    } else if (!_queueModel->isGroup(index) &&
               KVConversionRowDelegate::thumbnailRect(visualRect(index)).contains(point)) {
        _requestMenu(index);
    }
}

void KVQueueTableWidget::_pressButton(const QModelIndex &index) {
    if (_queueModel->isGroup(index))
        _requestMenu(index);
    else
        Q_EMIT stopButtonPressed(index);
}

bool KVQueueTableWidget::_isSignAt(const QPoint &point) const {
    const QModelIndex index = indexAt(point);
    return KVConversionRowDelegate::hasDetails(index) &&
           KVConversionRowDelegate::signRect(visualRect(index)).contains(point);
}

bool KVQueueTableWidget::_isControlAt(const QPoint &point, Qt::KeyboardModifiers modifiers) const {
    const QModelIndex index = indexAt(point);
    if (!index.isValid() || _buttonAt(point) == index || _isSignAt(point)) return index.isValid();
    // With a key that selects the picture is like the rest of the row.
    const bool isSelecting = modifiers & (Qt::ShiftModifier | Qt::ControlModifier);
    return !isSelecting && !_queueModel->isGroup(index) &&
           KVConversionRowDelegate::thumbnailRect(visualRect(index)).contains(point);
}

KVRowSelection KVQueueTableWidget::rowsForCommand() const {
    const QModelIndex current = currentIndex();
    const bool isForCurrent =
        current.isValid() && !_queueModel->isGroup(current) && !selectionModel()->isSelected(current);
    return _queueModel->selection(isForCurrent ? QModelIndexList{current} : selectedIndexes());
}

void KVQueueTableWidget::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) {
    const QRect area = rect.normalized();
    const QModelIndex first = indexAt(QPoint(0, area.top()));
    const QModelIndex last = indexAt(QPoint(0, area.bottom()));
    QItemSelection rows;
    if (first.isValid() && last.isValid()) rows.select(first, last);
    selectionModel()->select(rows, command);
}

QRegion KVQueueTableWidget::visualRegionForSelection(const QItemSelection &selection) const {
    QRegion region;
    for (const QItemSelectionRange &range : selection)
        region += visualRect(range.topLeft()).united(visualRect(range.bottomRight()));
    return region;
}

void KVQueueTableWidget::_chooseForMenu(const QModelIndex &index) {
    const bool isSelected = selectionModel()->isSelected(index);
    selectionModel()->setCurrentIndex(index, isSelected ? QItemSelectionModel::NoUpdate
                                                        : QItemSelectionModel::ClearAndSelect);
}

void KVQueueTableWidget::_requestMenu(const QModelIndex &index) {
    scrollTo(index);
    _chooseForMenu(index);
    const QRect rect = visualRect(index);
    if (_queueModel->isGroup(index)) {
        const QRect button = KVConversionRowDelegate::presetRect(rect);
        Q_EMIT presetMenuRequested(index, viewport()->mapToGlobal(button.bottomLeft() + QPoint(0, 1)));
    } else {
        const QRect thumbnail = KVConversionRowDelegate::thumbnailRect(rect);
        Q_EMIT rowMenuRequested(index, viewport()->mapToGlobal(thumbnail.bottomLeft() + QPoint(0, 1)));
    }
}

void KVQueueTableWidget::_setHovered(const QModelIndex &index) {
    if (index == _hovered) return;
    const QModelIndex previous = std::exchange(_hovered, QPersistentModelIndex(index));
    for (const QModelIndex &changed : {previous, index})
        if (changed.isValid()) viewport()->update(visualRect(changed));
}

bool KVQueueTableWidget::viewportEvent(QEvent *event) {
    if (event->type() == QEvent::Leave) _setHovered({});
    return QAbstractItemView::viewportEvent(event);
}

void KVQueueTableWidget::mousePressEvent(QMouseEvent *event) {
    // A button and the picture leave the selection as it is: their menu is for all selected rows.
    _isControlPressed = event->button() == Qt::LeftButton && _isControlAt(event->pos(), event->modifiers());
    if (_isControlPressed)
        selectionModel()->setCurrentIndex(indexAt(event->pos()), QItemSelectionModel::NoUpdate);
    else
        QAbstractItemView::mousePressEvent(event);
    _pressed = event->button() == Qt::LeftButton ? indexAt(event->pos()) : QModelIndex();
    _pressedAt = event->pos();
    viewport()->update();
}

void KVQueueTableWidget::mouseMoveEvent(QMouseEvent *event) {
    _setHovered(_buttonAt(event->pos()));
    viewport()->setCursor(_isSignAt(event->pos()) ? Qt::PointingHandCursor : Qt::ArrowCursor);
    const bool isHeld = event->buttons() == Qt::LeftButton && _pressed.isValid();
    const bool isFar = (event->pos() - _pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (!isHeld || !isFar) return;
    if (!_queueModel->isGroup(_pressed)) return startDrag(Qt::MoveAction);
    _pressed = QModelIndex();
    // A group row moves the window like its title bar.
    if (QWindow *handle = window()->windowHandle()) handle->startSystemMove();
}

void KVQueueTableWidget::mouseReleaseEvent(QMouseEvent *event) {
    const QModelIndex pressed = _pressed;
    _pressed = QModelIndex();
    viewport()->update();
    if (!std::exchange(_isControlPressed, false))
        QAbstractItemView::mouseReleaseEvent(event);
    else if (event->button() == Qt::LeftButton && pressed.isValid() && indexAt(event->pos()) == pressed)
        _activate(pressed, event->pos());
}

void KVQueueTableWidget::mouseDoubleClickEvent(QMouseEvent *event) {
    // After the first click on a button the row under the mouse may be another one.
    if (!_isControlAt(event->pos(), event->modifiers())) QAbstractItemView::mouseDoubleClickEvent(event);
}

void KVQueueTableWidget::focusInEvent(QFocusEvent *event) {
    // Who has not come with the keyboard has not chosen a row yet.
    const bool hasChosenRow = currentIndex().isValid() || event->reason() == Qt::TabFocusReason ||
                              event->reason() == Qt::BacktabFocusReason ||
                              event->reason() == Qt::ShortcutFocusReason;
    QAbstractItemView::focusInEvent(event);
    if (!hasChosenRow) selectionModel()->clearCurrentIndex();
}

void KVQueueTableWidget::keyPressEvent(QKeyEvent *event) {
    const QModelIndex index = currentIndex();
    const auto row = _queueModel->tableRow(index);
    const bool isControl = event->modifiers().testFlag(Qt::ControlModifier);
    // A key that is held down must not remove one row after the other.
    if (event->isAutoRepeat() && (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Space)) return;
    if (event->key() == Qt::Key_Delete) return rowsForCommand().remove();
    switch (index.isValid() ? event->key() : Qt::Key_unknown) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (isControl) return event->ignore();
        return KVConversionRowDelegate::hasDetails(index) ? Q_EMIT detailsRequested(index)
                                                          : _requestMenu(index);
    case Qt::Key_Space:
        if (isControl) break; // selects
        if (KVConversionRowDelegate::hasDetails(index)) return Q_EMIT detailsRequested(index);
        _pressButton(index);
        return;
    case Qt::Key_F2:
        if (row && row->canBeRenamed()) row->renameConversion();
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (!isControl) break;
        rowsForCommand().move(event->key() == Qt::Key_Up ? -1 : 1);
        return scrollTo(currentIndex());
    default:
        break;
    }
    QAbstractItemView::keyPressEvent(event);
}

void KVQueueTableWidget::contextMenuEvent(QContextMenuEvent *event) {
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid()) return;
    _chooseForMenu(index);
    if (isKey)
        _requestMenu(index);
    else if (_queueModel->isGroup(index))
        Q_EMIT presetMenuRequested(index, event->globalPos());
    else
        Q_EMIT rowMenuRequested(index, event->globalPos());
}
