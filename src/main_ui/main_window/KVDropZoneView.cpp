#include "main_ui/main_window/KVDropZoneView.h"

#include "kvcore/KVLocalizationCenter.h"

#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

KVDropZoneView::KVDropZoneView(QWidget *parent)
    : QWidget(parent) {
    auto *icon = new QLabel;
    icon->setPixmap(QIcon(QStringLiteral(":/icons/drop.svg")).pixmap(QSize(72, 72), devicePixelRatioF()));
    auto *title = new QLabel(KVLocalizationCenter::localized("Drop files here"));
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    font.setBold(true);
    title->setFont(font);
    auto *hint = new QLabel(
        KVLocalizationCenter::localized("Videos, sound files, pictures, folders or a DVD folder. Then pick a "
                                        "preset and press Start."));
    hint->setWordWrap(true);
    hint->setAlignment(Qt::AlignCenter);
    hint->setMinimumWidth(340);
    auto *button = new QPushButton(KVLocalizationCenter::localized("Add Files..."));
    connect(button, &QPushButton::clicked, this, &KVDropZoneView::addFilesRequested);

    auto *layout = new QVBoxLayout(this);
    layout->addStretch(3);
    for (QWidget *widget : {static_cast<QWidget *>(icon), static_cast<QWidget *>(title),
                            static_cast<QWidget *>(hint), static_cast<QWidget *>(button)}) {
        layout->addWidget(widget, 0, Qt::AlignHCenter);
        layout->addSpacing(6);
    }
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
    QColor line = palette().color(_isTargeted ? QPalette::Highlight : QPalette::Text);
    if (!_isTargeted) line.setAlphaF(0.25F);
    painter.setPen(QPen(line, 2, Qt::DashLine));
    painter.drawRoundedRect(QRectF(rect()).adjusted(20, 20, -20, -20), 14, 14);
}
