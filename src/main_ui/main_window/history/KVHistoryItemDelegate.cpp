#include "main_ui/main_window/history/KVHistoryItemDelegate.h"

#include "main_ui/main_window/KVLook.h"
#include "main_ui/main_window/history/KVHistoryModel.h"

#include <QApplication>
#include <QPainter>

namespace {

constexpr int padding = 7;
constexpr int gapBetweenLines = 1;

} // namespace

void KVHistoryItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    row.text.clear();
    const QStyle *style = row.widget ? row.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

    const bool isSelected = row.state.testFlag(QStyle::State_Selected);
    const QColor ink = row.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const QFont small = KVLook::smaller(row.font);
    const QFontMetrics metrics(row.font);
    const QFontMetrics smallMetrics(small);
    const QRect name(row.rect.left() + padding, row.rect.top() + padding, row.rect.width() - 2 * padding,
                     metrics.height());
    const QRect details(name.left(), name.bottom() + 1 + gapBetweenLines, name.width(),
                        smallMetrics.height());
    const Qt::Alignment alignment =
        Qt::AlignVCenter | Qt::AlignAbsolute | QStyle::visualAlignment(row.direction, Qt::AlignLeft);
    painter->save();
    painter->setFont(row.font);
    painter->setPen(ink);
    painter->drawText(name, alignment,
                      metrics.elidedText(index.data().toString(), Qt::ElideMiddle, name.width()));
    painter->setFont(small);
    painter->setPen(isSelected ? ink : KVLook::secondaryText(row.palette));
    painter->drawText(details, alignment,
                      smallMetrics.elidedText(index.data(KVHistoryModel::detailsRole).toString(),
                                              Qt::ElideMiddle, details.width()));
    painter->restore();
}

QSize KVHistoryItemDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const {
    const int text = QFontMetrics(option.font).height() + gapBetweenLines +
                     QFontMetrics(KVLook::smaller(option.font)).height();
    return {160, text + 2 * padding};
}
