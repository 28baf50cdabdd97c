#pragma once

#include <QColor>
#include <QDialogButtonBox>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QRectF>

class QPainter;

/// Colours, symbols and small shapes that the window's own drawing shares. All follow the palette, so that
/// light and dark desktops get what fits.
namespace KVLook {

bool isDark(const QPalette &palette);
/// Text that steps back behind the main text.
QColor secondaryText(const QPalette &palette);
/// Thin lines between things.
QColor line(const QPalette &palette);
/// Behind selected rows, whose text keeps its colours.
QColor selection(const QPalette &palette);
QColor success(const QPalette &palette);
QColor warning(const QPalette &palette);
QColor failure(const QPalette &palette);

/// The font of second lines.
QFont smaller(QFont font);

/// One of our one-coloured symbols ("add", "start", "pause", "done", "failed", ...) in a colour.
QPixmap symbol(const QString &name, const QSize &size, const QColor &color, qreal devicePixelRatio);
/// The same as an icon for buttons, in the palette's button colours.
QIcon icon(const QString &name, const QPalette &palette);

/// Gives a button of a dialog our text, and no picture.
void setButton(QDialogButtonBox &buttons, QDialogButtonBox::StandardButton button, const char *title);

/// How a flat button is just being used.
struct ButtonState {
    bool isHovered = false;
    bool isPressed = false;
    bool opensMenu = false; ///< Shows the mark of a pop-up.
};
/// A button without a frame, for lists in which a frame in every row would be too much.
void paintFlatButton(QPainter &painter, const QRect &rect, const QString &text, const QPalette &palette,
                     const ButtonState &state);

/// A round bar; `progress` from 0 to 1.
void paintProgress(QPainter &painter, const QRectF &rect, double progress, const QPalette &palette);

} // namespace KVLook
