#include "main_ui/main_window/KVLook.h"

#include "kvcore/KVLocalizationCenter.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QPushButton>

namespace {

constexpr int buttonPadding = 9;

QColor withAlpha(QColor color, float alpha) {
    color.setAlphaF(alpha);
    return color;
}

} // namespace

bool KVLook::isDark(const QPalette &palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

QColor KVLook::secondaryText(const QPalette &palette) {
    return withAlpha(palette.color(QPalette::Text), 0.66F);
}

QColor KVLook::line(const QPalette &palette) {
    return withAlpha(palette.color(QPalette::Text), 0.12F);
}

QColor KVLook::selection(const QPalette &palette) {
    return withAlpha(palette.color(QPalette::Highlight), isDark(palette) ? 0.32F : 0.18F);
}

QColor KVLook::success(const QPalette &palette) {
    return isDark(palette) ? QColor(0x7f, 0xcf, 0x8a) : QColor(0x2e, 0x7d, 0x32);
}

QColor KVLook::warning(const QPalette &palette) {
    return isDark(palette) ? QColor(0xf5, 0xb9, 0x4a) : QColor(0x9a, 0x58, 0x00);
}

QColor KVLook::failure(const QPalette &palette) {
    return isDark(palette) ? QColor(0xff, 0x9b, 0x94) : QColor(0xb7, 0x1c, 0x1c);
}

QFont KVLook::smaller(QFont font) {
    font.setPointSizeF(font.pointSizeF() * 0.9);
    return font;
}

QPixmap KVLook::symbol(const QString &name, const QSize &size, const QColor &color, qreal devicePixelRatio) {
    const QString key = QStringLiteral("kalvora-%1-%2x%3-%4-%5")
                            .arg(name)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(color.rgba(), 0, 16)
                            .arg(devicePixelRatio);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;
    pixmap = QIcon(QStringLiteral(":/icons/%1.svg").arg(name)).pixmap(size, devicePixelRatio);
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(), size), color);
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QIcon KVLook::icon(const QString &name, const QPalette &palette) {
    constexpr QSize size(16, 16);
    QIcon icon;
    const qreal ratio = qGuiApp->devicePixelRatio();
    for (const auto &[mode, group] :
         {std::pair(QIcon::Normal, QPalette::Active), std::pair(QIcon::Disabled, QPalette::Disabled)})
        icon.addPixmap(symbol(name, size, palette.color(group, QPalette::ButtonText), ratio), mode);
    return icon;
}

void KVLook::setButton(QDialogButtonBox &buttons, QDialogButtonBox::StandardButton button,
                       const char *title) {
    buttons.button(button)->setText(KVLocalizationCenter::localized(title));
    buttons.button(button)->setIcon({});
}

void KVLook::paintFlatButton(QPainter &painter, const QRect &rect, const QString &text,
                             const QPalette &palette, const ButtonState &state) {
    const QColor ink = palette.color(QPalette::Text);
    painter.setPen(QPen(withAlpha(ink, 0.16F), 1));
    painter.setBrush(withAlpha(ink, state.isPressed ? 0.20F : state.isHovered ? 0.12F : 0.05F));
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);

    painter.setPen(ink);
    QRect inside = rect.adjusted(buttonPadding, 0, -buttonPadding, 0);
    if (state.opensMenu) {
        const QSize size(10, 10);
        const bool isMirrored = painter.layoutDirection() == Qt::RightToLeft;
        const QRect mark(isMirrored ? inside.left() : inside.right() - size.width() + 1,
                         inside.center().y() - size.height() / 2 + 1, size.width(), size.height());
        painter.drawPixmap(
            mark, symbol("chevron", size, secondaryText(palette), painter.device()->devicePixelRatioF()));
        if (isMirrored)
            inside.setLeft(mark.right() + buttonPadding);
        else
            inside.setRight(mark.left() - buttonPadding);
    }
    const QString shown = painter.fontMetrics().elidedText(text, Qt::ElideRight, inside.width());
    painter.drawText(inside, Qt::AlignVCenter | (state.opensMenu ? Qt::AlignLeading : Qt::AlignHCenter),
                     shown);
}

void KVLook::paintProgress(QPainter &painter, const QRectF &rect, double progress, const QPalette &palette) {
    const double radius = rect.height() / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(withAlpha(palette.color(QPalette::Text), 0.14F));
    painter.drawRoundedRect(rect, radius, radius);
    if (progress <= 0) return;
    QRectF done = rect;
    done.setWidth(std::max(rect.height(), rect.width() * progress)); // a circle at the least
    if (painter.layoutDirection() == Qt::RightToLeft) done.moveRight(rect.right());
    painter.setBrush(palette.color(QPalette::Highlight));
    painter.drawRoundedRect(done, radius, radius);
}
