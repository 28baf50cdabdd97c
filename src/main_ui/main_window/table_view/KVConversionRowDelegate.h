#pragma once

#include <QStyledItemDelegate>

/// Paints the rows of the queue table: group rows with their preset pop-up, conversion rows with thumbnails,
/// title, status, progress and stop button. In the option, State_MouseOver and State_Sunken speak of the
/// row's button.
class KVConversionRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Where the parts of a row stand; the widget asks this for clicks.
    static QRect thumbnailRect(const QRect &row);
    static QRect stopRect(const QRect &row);
    static QRect presetRect(const QRect &groupRow);
    /// The sign of a finished row, beside its button; it opens the details if there are any.
    static QRect signRect(const QRect &row);
    /// The button of any row: preset or stop.
    static QRect buttonRect(const QModelIndex &index, const QRect &row);

    /// True for a finished row with more to read than it shows.
    static bool hasDetails(const QModelIndex &index);
    /// Of the sign and the second line of a finished row.
    static QColor outcomeColor(const QModelIndex &index, const QPalette &palette);

    /// A conversion row, small enough to hang on the mouse.
    static QPixmap dragImage(QStyleOptionViewItem option, const QModelIndex &index);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
