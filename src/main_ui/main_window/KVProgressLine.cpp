#include "main_ui/main_window/KVProgressLine.h"

#include "main_ui/main_window/KVLook.h"

#include <QPainter>

namespace {

constexpr int thickness = 6;

} // namespace

KVProgressLine::KVProgressLine(QWidget *parent)
    : QProgressBar(parent) {
    setTextVisible(false);
}

QSize KVProgressLine::sizeHint() const {
    return {120, fontMetrics().height()};
}

QSize KVProgressLine::minimumSizeHint() const {
    return {48, sizeHint().height()};
}

void KVProgressLine::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(layoutDirection());
    const double done = double(value() - minimum()) / std::max(1, maximum() - minimum());
    KVLook::paintProgress(painter, QRectF(0, (height() - thickness) / 2.0, width(), thickness), done,
                          palette());
}
