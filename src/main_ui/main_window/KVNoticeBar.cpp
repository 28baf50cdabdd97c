#include "main_ui/main_window/KVNoticeBar.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVLook.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace {

constexpr int symbolSize = 16;

} // namespace

KVNoticeBar::KVNoticeBar(const QString &symbol, QWidget *parent)
    : QFrame(parent)
    , _symbolName(symbol)
    , _symbol(new QLabel)
    , _text(new QLabel)
    , _closeButton(new QToolButton)
    , _layout(new QHBoxLayout(this)) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    _text->setTextFormat(Qt::PlainText);
    _text->setWordWrap(true);
    _closeButton->setText(QStringLiteral("\u00d7"));
    _closeButton->setAutoRaise(true);
    _closeButton->setToolTip(KVLocalizationCenter::localized("Close"));
    _closeButton->setAccessibleName(_closeButton->toolTip());
    _layout->setContentsMargins(12, 5, 8, 5);
    _layout->setSpacing(8);
    _layout->addWidget(_symbol);
    _layout->addWidget(_text, 1);
    _layout->addWidget(_closeButton);
    connect(_closeButton, &QToolButton::clicked, this, [this] {
        setNotice({});
        Q_EMIT closed();
    });
    hide();
    _updateColors();
}

QPushButton *KVNoticeBar::addButton(const QString &title, std::function<void()> action) {
    auto *button = new QPushButton(title);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [action = std::move(action)] { action(); });
    _layout->insertWidget(_layout->count() - 1, button);
    return button;
}

void KVNoticeBar::setNotice(const QString &text, bool isQuiet) {
    _text->setText(text);
    if (_isQuiet != isQuiet) {
        _isQuiet = isQuiet;
        _updateColors();
    }
    setAccessibleName(text);
    setVisible(!text.isEmpty());
}

QString KVNoticeBar::notice() const {
    return isHidden() ? QString() : _text->text();
}

void KVNoticeBar::_updateColors() {
    _symbol->setVisible(!_isQuiet);
    _symbol->setPixmap(KVLook::symbol(_symbolName, QSize(symbolSize, symbolSize), KVLook::failure(palette()),
                                      devicePixelRatioF()));
    QPalette colors = palette();
    if (_isQuiet) colors.setColor(QPalette::WindowText, KVLook::secondaryText(palette()));
    _text->setPalette(colors);
}

void KVNoticeBar::changeEvent(QEvent *event) {
    if (event->type() == QEvent::PaletteChange) _updateColors();
    QFrame::changeEvent(event);
}
