#include "main_ui/main_window/table_view/KVConversionRowDelegate.h"

#include "conversion/conversions/KVConversion.h"
#include "main_ui/main_window/table_view/KVQueueTableModel.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int margin = 8;
constexpr int thumbnailSide = 40;
constexpr int progressHeight = 4;

using Role = KVQueueTableModel::Role;

QFont smaller(QFont font) {
    font.setPointSizeF(font.pointSizeF() * 0.88);
    return font;
}

QColor secondary(const QPalette &palette) {
    QColor color = palette.color(QPalette::Text);
    color.setAlphaF(0.62F);
    return color;
}

int stopWidth(const QFontMetrics &metrics) {
    return metrics.averageCharWidth() * 12 + 2 * margin;
}

QIcon stockIcon(KVMediaFileType type) {
    const auto name = [&] {
        switch (type) {
        case KVMediaFileType::picture:
            return "picture";
        case KVMediaFileType::audio:
            return "music";
        case KVMediaFileType::dvd:
            return "dvd";
        default:
            return "movie";
        }
    };
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(name()));
}

void paintThumbnail(QPainter &painter, const QRect &rect, const QModelIndex &index) {
    const QVariant thumbnail = index.data(Role::thumbnailRole);
    if (!thumbnail.isValid()) {
        stockIcon(KVMediaFileType(index.data(Role::mediaTypeRole).toInt())).paint(&painter, rect);
        return;
    }
    const qreal ratio = painter.device()->devicePixelRatioF();
    QImage image = thumbnail.value<QImage>().scaled(rect.size() * ratio, Qt::KeepAspectRatioByExpanding,
                                                    Qt::SmoothTransformation);
    image.setDevicePixelRatio(ratio);
    QPainterPath shape;
    shape.addRoundedRect(rect, 4, 4);
    painter.save();
    painter.setClipPath(shape);
    const QSizeF shown = QSizeF(image.size()) / ratio;
    painter.drawImage(QPointF(rect.center().x() - shown.width() / 2, rect.center().y() - shown.height() / 2),
                      image);
    painter.restore();
}

void paintProgress(QPainter &painter, const QRect &rect, double progress, const QPalette &palette) {
    painter.setPen(Qt::NoPen);
    QColor groove = palette.color(QPalette::Text);
    groove.setAlphaF(0.14F);
    painter.setBrush(groove);
    painter.drawRoundedRect(rect, progressHeight / 2.0, progressHeight / 2.0);
    painter.setBrush(palette.color(QPalette::Highlight));
    QRectF done = rect;
    done.setWidth(rect.width() * progress);
    painter.drawRoundedRect(done, progressHeight / 2.0, progressHeight / 2.0);
}

void paintFocus(QPainter &painter, const QStyleOptionViewItem &option) {
    if (!option.state.testFlag(QStyle::State_HasFocus)) return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(option.palette.color(QPalette::Highlight), 1.5));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(2, 2, -2, -2), 4, 4);
}

void paintGroup(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) {
    painter.fillRect(option.rect, option.palette.color(QPalette::Window));
    QFont font = option.font;
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(secondary(option.palette));
    painter.drawText(option.rect.adjusted(margin, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     index.data(Role::titleRole).toString());

    QStyleOptionComboBox box;
    box.rect = KVConversionRowDelegate::presetRect(option.rect);
    box.palette = option.palette;
    box.fontMetrics = option.fontMetrics;
    box.direction = option.direction;
    box.state = QStyle::State_Enabled;
    box.currentText = index.data(Role::presetNameRole).toString();
    painter.setFont(option.font);
    QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawComplexControl(QStyle::CC_ComboBox, &box, &painter, option.widget);
    style->drawControl(QStyle::CE_ComboBoxLabel, &box, &painter, option.widget);
}

void paintStopButton(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) {
    QStyleOptionButton button;
    button.rect = KVConversionRowDelegate::stopRect(option.rect);
    button.palette = option.palette;
    button.fontMetrics = option.fontMetrics;
    button.text = index.data(Role::stopTitleRole).toString();
    button.state = QStyle::State_Enabled | QStyle::State_Raised;
    painter.setFont(smaller(option.font));
    QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_PushButton, &button, &painter, option.widget);
}

void paintConversion(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) {
    const auto state = KVConversionState(index.data(Role::stateRole).toInt());
    const bool isFinished = state == KVConversionState::finished;
    const bool isRunning = state == KVConversionState::executing || state == KVConversionState::paused;
    const QPalette &palette = option.palette;

    paintThumbnail(painter, KVConversionRowDelegate::thumbnailRect(option.rect), index);
    const QRect stop = KVConversionRowDelegate::stopRect(option.rect);
    const int left = KVConversionRowDelegate::thumbnailRect(option.rect).right() + margin;
    const int right = isFinished ? option.rect.right() - margin : stop.left() - margin;
    const QRect text(left, option.rect.top() + 4, right - left, option.rect.height() - 8);

    const QFontMetrics metrics(option.font);
    painter.setFont(option.font);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(
        QRect(text.left(), text.top(), text.width(), metrics.height()), Qt::AlignVCenter | Qt::AlignLeft,
        metrics.elidedText(index.data(Role::titleRole).toString(), Qt::ElideMiddle, text.width()));

    const QFont small = smaller(option.font);
    const QFontMetrics smallMetrics(small);
    QRect status(text.left(), text.bottom() - smallMetrics.height() + 1, text.width(), smallMetrics.height());
    if (const QVariant progress = index.data(Role::progressRole); isRunning && progress.isValid()) {
        const QRect bar(text.left(), status.center().y() - progressHeight / 2, text.width() * 3 / 5,
                        progressHeight);
        paintProgress(painter, bar, progress.toDouble(), palette);
        status.setLeft(bar.right() + margin);
    }
    const bool hasFailed = isFinished && !index.data(Role::isSuccessfulRole).toBool();
    painter.setFont(small);
    painter.setPen(hasFailed ? QColor(0xc6, 0x28, 0x28) : secondary(palette));
    painter.drawText(
        status, Qt::AlignVCenter | Qt::AlignLeft,
        smallMetrics.elidedText(index.data(Role::statusRole).toString(), Qt::ElideRight, status.width()));

    if (!isFinished) paintStopButton(painter, option, index);
    painter.setPen(palette.color(QPalette::AlternateBase));
    painter.drawLine(left, option.rect.bottom(), option.rect.right(), option.rect.bottom());
}

} // namespace

QRect KVConversionRowDelegate::thumbnailRect(const QRect &row) {
    return {row.left() + margin, row.top() + (row.height() - thumbnailSide) / 2, thumbnailSide,
            thumbnailSide};
}

QRect KVConversionRowDelegate::stopRect(const QRect &row) {
    const QFontMetrics metrics(QApplication::font());
    const int width = stopWidth(metrics);
    const int height = metrics.height() + 10;
    return {row.right() - margin - width, row.top() + (row.height() - height) / 2, width, height};
}

QRect KVConversionRowDelegate::presetRect(const QRect &groupRow) {
    const int width =
        std::min(groupRow.width() / 2, QFontMetrics(QApplication::font()).averageCharWidth() * 34);
    return {groupRow.right() - margin - width, groupRow.top() + 1, width, groupRow.height() - 2};
}

void KVConversionRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (index.data(Role::isGroupRole).toBool())
        paintGroup(*painter, option, index);
    else
        paintConversion(*painter, option, index);
    paintFocus(*painter, option);
    painter->restore();
}

QSize KVConversionRowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const bool isGroup = index.data(Role::isGroupRole).toBool();
    return {option.rect.width(), isGroup ? KVQueueTableViewController::groupRowHeight
                                         : KVQueueTableViewController::conversionRowHeight};
}
