#include "main_ui/main_window/table_view/KVConversionRowDelegate.h"

#include "conversion/conversions/KVConversion.h"
#include "main_ui/main_window/KVLook.h"
#include "main_ui/main_window/table_view/KVQueueTableModel.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int margin = 10;
constexpr int thumbnailSide = 37;
constexpr int stackOffset = 4; // of a thumbnail behind another
constexpr int progressHeight = 5;
constexpr int lineGap = 2; // between title and status
constexpr int stateSymbolSide = 18;
constexpr int signSide = 28; // with the space around the symbol that takes clicks
constexpr int widestDragImage = 320;

using Role = KVQueueTableModel::Role;

KVConversionState stateOf(const QModelIndex &index) {
    return KVConversionState(index.data(Role::stateRole).toInt());
}

KVRowOutcome::Kind outcomeOf(const QModelIndex &index) {
    return KVRowOutcome::Kind(index.data(Role::outcomeRole).toInt());
}

const char *symbolOf(KVRowOutcome::Kind outcome) {
    switch (outcome) {
    case KVRowOutcome::Kind::succeeded:
        return "done";
    case KVRowOutcome::Kind::succeededWithWarnings:
        return "warning";
    default:
        return "failed";
    }
}

QRect mirrored(const QRect &rect, const QRect &row) {
    return QStyle::visualRect(QApplication::layoutDirection(), row, rect);
}

QString stockIcon(KVMediaFileType type) {
    switch (type) {
    case KVMediaFileType::picture:
        return QStringLiteral(":/icons/picture.svg");
    case KVMediaFileType::audio:
        return QStringLiteral(":/icons/music.svg");
    case KVMediaFileType::dvd:
        return QStringLiteral(":/icons/dvd.svg");
    default:
        return QStringLiteral(":/icons/movie.svg");
    }
}

/// Drawn once for each size.
QPixmap stockPixmap(KVMediaFileType type, int side, qreal ratio) {
    const QString key =
        QStringLiteral("kalvora-stock-%1-%2-%3").arg(static_cast<int>(type)).arg(side).arg(ratio);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;
    pixmap = QIcon(stockIcon(type)).pixmap(QSize(side, side), ratio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

/// The picture cut to a rounded square; decoding and scaling are done once for each picture and size.
QPixmap thumbnailPixmap(const QByteArray &data, int side, qreal ratio) {
    const QString key = QStringLiteral("kalvora-thumbnail-%1-%2-%3-%4")
                            .arg(qHash(data))
                            .arg(data.size())
                            .arg(side)
                            .arg(ratio);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;
    const int pixels = qRound(side * ratio);
    const QImage scaled = QImage::fromData(data).scaled(QSize(pixels, pixels), Qt::KeepAspectRatioByExpanding,
                                                        Qt::SmoothTransformation);
    pixmap = QPixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(pixmap.rect(), 5 * ratio, 5 * ratio);
    painter.setClipPath(shape);
    painter.drawImage((pixels - scaled.width()) / 2, (pixels - scaled.height()) / 2, scaled);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

/// The first file's picture in front, those of the next files looking out behind it.
void paintThumbnails(QPainter &painter, const QRect &place, const QModelIndex &index,
                     const QPalette &palette) {
    const QVariantList pictures = index.data(Role::thumbnailsRole).toList();
    const int behind = int(pictures.size()) - 1;
    const int side = thumbnailSide - stackOffset * behind;
    const qreal ratio = painter.device()->devicePixelRatioF();
    const auto type = KVMediaFileType(index.data(Role::mediaTypeRole).toInt());
    for (int number = behind; number >= 0; --number) {
        const QRect rect(place.left() + stackOffset * number, place.top() + stackOffset * (behind - number),
                         side, side);
        if (number < behind) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(palette.base());
            painter.drawRoundedRect(QRectF(rect).adjusted(-1.5, -1.5, 1.5, 1.5), 6, 6);
        }
        const QByteArray data = pictures.at(number).toByteArray();
        painter.drawPixmap(rect, data.isEmpty() ? stockPixmap(type, side, ratio)
                                                : thumbnailPixmap(data, side, ratio));
    }
}

void paintFocus(QPainter &painter, const QStyleOptionViewItem &option) {
    if (!option.state.testFlag(QStyle::State_HasFocus)) return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(option.palette.color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(2, 2, -2, -2), 5, 5);
}

void paintButton(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
                 const QString &text, bool opensMenu) {
    painter.setFont(KVLook::smaller(option.font));
    KVLook::paintFlatButton(painter, rect, text, option.palette,
                            {.isHovered = option.state.testFlag(QStyle::State_MouseOver),
                             .isPressed = option.state.testFlag(QStyle::State_Sunken),
                             .opensMenu = opensMenu});
}

void paintGroup(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) {
    painter.fillRect(option.rect, option.palette.color(QPalette::Window));
    painter.setPen(KVLook::line(option.palette));
    painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    const QRect button = KVConversionRowDelegate::presetRect(option.rect);
    QFont font = KVLook::smaller(option.font);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(KVLook::secondaryText(option.palette));
    painter.drawText(option.rect.adjusted(margin, 0, -margin, 0), Qt::AlignVCenter | Qt::AlignLeading,
                     index.data(Role::titleRole).toString());
    paintButton(painter, option, button, index.data(Role::presetNameRole).toString(), true);
}

/// Title above, status or progress below, both as one block in the middle of the row.
void paintTexts(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index,
                const QRect &space) {
    const QPalette &palette = option.palette;
    const KVConversionState state = stateOf(index);
    const QFont small = KVLook::smaller(option.font);
    const QFontMetrics metrics(option.font);
    const QFontMetrics smallMetrics(small);
    const int height = metrics.height() + lineGap + smallMetrics.height();
    const QRect title(space.left(), space.center().y() - height / 2, space.width(), metrics.height());
    QRect status(space.left(), title.bottom() + 1 + lineGap, space.width(), smallMetrics.height());

    // Names keep their place beside the picture, in whatever script they are.
    const Qt::Alignment side = QStyle::visualAlignment(QApplication::layoutDirection(), Qt::AlignLeft);
    const Qt::Alignment alignment = Qt::AlignVCenter | Qt::AlignAbsolute | side;
    painter.setFont(option.font);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(
        title, alignment,
        metrics.elidedText(index.data(Role::titleRole).toString(), Qt::ElideMiddle, title.width()));

    const bool isRunning = state == KVConversionState::executing || state == KVConversionState::paused;
    if (const QVariant progress = index.data(Role::progressRole); isRunning && progress.isValid()) {
        const QRect bar(status.left(), status.center().y() - progressHeight / 2, status.width() * 3 / 5,
                        progressHeight);
        KVLook::paintProgress(painter, mirrored(bar, status), progress.toDouble(), palette);
        const QRect rest(bar.right() + margin, status.top(), status.right() - bar.right() - margin,
                         status.height());
        status = mirrored(rest, status);
    }
    const bool isPlain = outcomeOf(index) == KVRowOutcome::Kind::succeeded;
    painter.setFont(small);
    painter.setPen(isPlain ? KVLook::secondaryText(palette)
                           : KVConversionRowDelegate::outcomeColor(index, palette));
    painter.drawText(
        status, alignment,
        smallMetrics.elidedText(index.data(Role::statusRole).toString(), Qt::ElideRight, status.width()));
}

void paintSign(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index,
               const QRect &rect) {
    const QSize size(stateSymbolSide, stateSymbolSide);
    QRect place(QPoint(), size);
    place.moveCenter(rect.center());
    painter.drawPixmap(place, KVLook::symbol(symbolOf(outcomeOf(index)), size,
                                             KVConversionRowDelegate::outcomeColor(index, option.palette),
                                             painter.device()->devicePixelRatioF()));
}

void paintConversion(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) {
    const QRect thumbnail = KVConversionRowDelegate::thumbnailRect(option.rect);
    const QRect stop = KVConversionRowDelegate::stopRect(option.rect);
    paintThumbnails(painter, thumbnail, index, option.palette);

    QRect space = option.rect.adjusted(2 * margin + thumbnailSide, 0, -(2 * margin + stop.width()), 0);
    if (stateOf(index) == KVConversionState::finished) {
        const QRect sign = KVConversionRowDelegate::signRect(option.rect);
        paintSign(painter, option, index, sign);
        space.setRight(space.right() - sign.width());
    }
    paintButton(painter, option, stop, index.data(Role::stopTitleRole).toString(), false);
    paintTexts(painter, option, index, mirrored(space, option.rect));

    const QRect line(space.left(), option.rect.bottom(), option.rect.right() - space.left(), 1);
    painter.fillRect(mirrored(line, option.rect), KVLook::line(option.palette));
}

} // namespace

QRect KVConversionRowDelegate::thumbnailRect(const QRect &row) {
    return mirrored(
        {row.left() + margin, row.top() + (row.height() - thumbnailSide) / 2, thumbnailSide, thumbnailSide},
        row);
}

QRect KVConversionRowDelegate::stopRect(const QRect &row) {
    const QFontMetrics metrics(KVLook::smaller(QApplication::font()));
    const int width = metrics.averageCharWidth() * 13 + 2 * margin;
    const int height = metrics.height() + 8;
    return mirrored(
        {row.right() - margin - width + 1, row.top() + (row.height() - height) / 2, width, height}, row);
}

QRect KVConversionRowDelegate::presetRect(const QRect &groupRow) {
    const QFontMetrics metrics(KVLook::smaller(QApplication::font()));
    const int width = std::min(groupRow.width() / 2, metrics.averageCharWidth() * 30 + 2 * margin);
    return mirrored({groupRow.right() - margin - width + 1, groupRow.top() + 2, width, groupRow.height() - 5},
                    groupRow);
}

QRect KVConversionRowDelegate::signRect(const QRect &row) {
    const int right = row.right() - 2 * margin - stopRect(row).width();
    return mirrored({right - signSide + 1, row.top() + (row.height() - signSide) / 2, signSide, signSide},
                    row);
}

bool KVConversionRowDelegate::hasDetails(const QModelIndex &index) {
    return index.data(Role::hasDetailsRole).toBool();
}

QColor KVConversionRowDelegate::outcomeColor(const QModelIndex &index, const QPalette &palette) {
    switch (outcomeOf(index)) {
    case KVRowOutcome::Kind::succeeded:
        return KVLook::success(palette);
    case KVRowOutcome::Kind::succeededWithWarnings:
        return KVLook::warning(palette);
    case KVRowOutcome::Kind::failed:
        return KVLook::failure(palette);
    case KVRowOutcome::Kind::cancelled:
    case KVRowOutcome::Kind::unfinished:
        break;
    }
    return KVLook::secondaryText(palette);
}

QRect KVConversionRowDelegate::buttonRect(const QModelIndex &index, const QRect &row) {
    if (!index.isValid()) return {};
    if (index.data(Role::isGroupRole).toBool()) return presetRect(row);
    return stopRect(row);
}

QPixmap KVConversionRowDelegate::dragImage(QStyleOptionViewItem option, const QModelIndex &index) {
    const qreal ratio = option.widget->devicePixelRatioF();
    option.rect = QRect(0, 0, std::min(widestDragImage, option.widget->width()),
                        KVQueueTableViewController::conversionRowHeight);
    QPixmap image(option.rect.size() * ratio);
    image.setDevicePixelRatio(ratio);
    image.fill(option.palette.color(QPalette::Base));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paintConversion(painter, option, index);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(option.palette.color(QPalette::Mid));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    return image;
}

void KVConversionRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setLayoutDirection(QApplication::layoutDirection());
    if (option.state.testFlag(QStyle::State_Selected))
        painter->fillRect(option.rect, KVLook::selection(option.palette));
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
