#include "main_ui/main_window/KVUndoBar.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVLook.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

KVUndoBar::KVUndoBar(QWidget *parent)
    : QWidget(parent)
    , _label(new QLabel)
    , _undo(new QPushButton(KVLocalizationCenter::localized("Undo"))) {
    _label->setTextFormat(Qt::PlainText);
    _label->setWordWrap(true);
    connect(_undo, &QPushButton::clicked, this, &KVUndoBar::undoRequested);
    _timer.setSingleShot(true);
    _timer.setInterval(secondsShown * 1000);
    connect(&_timer, &QTimer::timeout, this, &QWidget::hide);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 5, 10, 4);
    layout->setSpacing(12);
    layout->addWidget(_label, 1);
    layout->addWidget(_undo);
    hide();
}

void KVUndoBar::showStep(const QString &message) {
    _show(message, true);
}

void KVUndoBar::showNote(const QString &message) {
    _show(message, false);
}

QString KVUndoBar::message() const {
    return _label->text();
}

void KVUndoBar::_show(const QString &message, bool canUndo) {
    _label->setText(message);
    setAccessibleName(message);
    _undo->setVisible(canUndo);
    show();
    _timer.start();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void KVUndoBar::enterEvent(QEnterEvent *event) {
    _timer.stop();
    QWidget::enterEvent(event);
}

void KVUndoBar::leaveEvent(QEvent *event) {
    if (isVisible()) _timer.start();
    QWidget::leaveEvent(event);
}

void KVUndoBar::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), KVLook::selection(palette()));
    painter.fillRect(0, 0, width(), 1, KVLook::line(palette()));
}
