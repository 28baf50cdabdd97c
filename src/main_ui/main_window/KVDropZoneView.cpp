#include "main_ui/main_window/KVDropZoneView.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVLook.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int frameMargin = 20;
constexpr int textMargin = 48;

} // namespace

KVDropZoneView::KVDropZoneView(QWidget *parent)
    : QWidget(parent) {
    auto *icon = new QLabel;
    icon->setPixmap(QIcon(QStringLiteral(":/icons/drop.svg")).pixmap(QSize(72, 72), devicePixelRatioF()));
    icon->setAlignment(Qt::AlignCenter);
    auto *title = new QLabel(KVLocalizationCenter::localized("Drop files here"));
    title->setAlignment(Qt::AlignCenter);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    font.setBold(true);
    title->setFont(font);
    auto *hint = new QLabel(KVLocalizationCenter::localized(
        "Videos, sound files, pictures, folders or a DVD folder. Then pick a preset and press Start."));
    hint->setWordWrap(true);
    hint->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    auto *button = new QPushButton(KVLocalizationCenter::localized("Add Files..."));
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, &KVDropZoneView::addFilesRequested);
    setFocusProxy(button);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(textMargin, frameMargin, textMargin, frameMargin);
    layout->addStretch(3);
    layout->addWidget(icon);
    layout->addSpacing(8);
    layout->addWidget(title);
    layout->addSpacing(4);
    layout->addWidget(hint);
    layout->addSpacing(14);
    layout->addWidget(button, 0, Qt::AlignHCenter);
    layout->addStretch(4);
    setAccessibleName(title->text());
}

void KVDropZoneView::setIsTargeted(bool isTargeted) {
    _isTargeted = isTargeted;
    update();
}

void KVDropZoneView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor highlight = palette().color(QPalette::Highlight);
    QColor line = _isTargeted ? highlight : palette().color(QPalette::WindowText);
    QColor inside = highlight;
    line.setAlphaF(_isTargeted ? 1 : 0.28F);
    inside.setAlphaF(_isTargeted ? 0.1F : 0);
    painter.setPen(QPen(line, 1.5, Qt::DashLine));
    painter.setBrush(inside);
    painter.drawRoundedRect(QRectF(rect()).adjusted(frameMargin, frameMargin, -frameMargin, -frameMargin), 12,
                            12);
}
