#pragma once

#include "main_ui/main_window/table_view/KVQueueTableModel.h"

#include <QAbstractItemView>
#include <QHash>
#include <QPersistentModelIndex>

/// The queue table: a flat list with two row heights. Row positions follow from arithmetic alone, so that ten
/// thousand rows cost no more than ten. Several conversion rows can be selected; the keyboard moves a current
/// row. Handles the drags of rows; drops of files are the window's.
class KVQueueTableWidget : public QAbstractItemView {
    Q_OBJECT

  public:
    explicit KVQueueTableWidget(QWidget *parent = nullptr);

    void setQueueModel(KVQueueTableModel *model);

    /// The rows that a command is for: the selected ones, or a current row that is not one of them alone.
    KVRowSelection rowsForCommand() const;

    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint &point) const override;

  Q_SIGNALS:
    void rowMenuRequested(const QModelIndex &index, const QPoint &globalPosition);
    void presetMenuRequested(const QModelIndex &index, const QPoint &globalPosition);
    void stopButtonPressed(const QModelIndex &index);
    void detailsRequested(const QModelIndex &index);

  protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex &) const override { return false; }
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;
    void updateGeometries() override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

  private:
    struct DropTarget {
        int row = -1;
        KVDropOperation operation = KVDropOperation::on;
    };

    int _heightOf(int row) const;
    int _topOf(int row) const; ///< In the coordinates of the whole list.
    int _contentHeight() const;
    DropTarget _dropTargetAt(const QPoint &point) const;
    void _paintDropTarget(QPainter &painter) const;
    void _paintRow(QPainter &painter, QStyleOptionViewItem &option, const QModelIndex &index) const;
    void _activate(const QModelIndex &index, const QPoint &point);
    /// Does what the row's button is for.
    void _pressButton(const QModelIndex &index);
    void _requestMenu(const QModelIndex &index);
    /// Makes it current; an unselected row becomes the only selected one.
    void _chooseForMenu(const QModelIndex &index);
    void _setHovered(const QModelIndex &index);
    void _glow(const QModelIndex &index);
    void _scrollNearEdges(int y);
    QModelIndex _buttonAt(const QPoint &point) const;
    bool _isSignAt(const QPoint &point) const; ///< A sign that opens the details.
    /// A button, a sign or a picture that opens a menu.
    bool _isControlAt(const QPoint &point, Qt::KeyboardModifiers modifiers) const;
    KVRowSelection::List _rowsToDrag(const QModelIndex &index) const;
    bool _canDrop(const DropTarget &target) const;
    void _explainRefusal(const DropTarget &target, const QPoint &point);

    KVQueueTableModel *_queueModel = nullptr;
    DropTarget _dropTarget;
    QPersistentModelIndex _pressed;
    QPersistentModelIndex _hovered; ///< The row whose button the mouse is on.
    QPoint _pressedAt;
    bool _isControlPressed = false;
    QHash<QPersistentModelIndex, double> _glows; ///< Of rows that have just finished, from 1 to 0.
};
