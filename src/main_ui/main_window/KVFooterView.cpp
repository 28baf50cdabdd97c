#include "main_ui/main_window/KVFooterView.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVLook.h"
#include "main_ui/main_window/KVProgressLine.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace {

// Fine enough that a long film still moves the bar.
constexpr int progressSteps = 1000;
constexpr int slidingDistance = 40;

/// Gives its one child all of its place, wherever an animation then moves it.
class SlidingArea : public QWidget {
  public:
    explicit SlidingArea(QWidget *content) {
        content->setParent(this);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    }
    QSize sizeHint() const override { return _content()->sizeHint(); }
    QSize minimumSizeHint() const override {
        const QSize minimum = _content()->minimumSizeHint();
        return _content()->isHidden() ? QSize(0, minimum.height()) : minimum;
    }

  protected:
    void resizeEvent(QResizeEvent *) override { _content()->resize(size()); }

  private:
    QWidget *_content() const { return static_cast<QWidget *>(children().first()); }
};

/// A line of text that ends in an ellipsis if there is no room for it; then its tooltip is the whole text.
class ElidedLabel : public QLabel {
  public:
    QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * 14, QLabel::minimumSizeHint().height()};
    }

  protected:
    void paintEvent(QPaintEvent *) override {
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        if (const QString whole = shown == text() ? QString() : text(); whole != toolTip()) setToolTip(whole);
        QPainter painter(this);
        style()->drawItemText(&painter, rect(), Qt::AlignVCenter | Qt::AlignLeading, palette(), isEnabled(),
                              shown, foregroundRole());
    }
};

} // namespace

KVFooterView::KVFooterView(QWidget *parent)
    : QWidget(parent)
    , _addButton(new QPushButton(KVLocalizationCenter::localized("Add Files...")))
    , _startButton(new QPushButton(KVLocalizationCenter::localized("Start")))
    , _pauseButton(new QPushButton(KVLocalizationCenter::localized("Pause All")))
    , _loading(new QLabel)
    , _slidingPart(new QWidget)
    , _progressBar(new KVProgressLine)
    , _status(new ElidedLabel)
    , _sliding(new QPropertyAnimation(_slidingPart, "pos", this)) {
    connect(_addButton, &QPushButton::clicked, this, &KVFooterView::addFilesRequested);
    connect(_startButton, &QPushButton::clicked, this, &KVFooterView::startRequested);
    connect(_pauseButton, &QPushButton::clicked, this, &KVFooterView::pauseRequested);
    connect(_sliding, &QPropertyAnimation::finished, this, [this] {
        _slidingPart->setVisible(_showsProgress);
        _progressArea->updateGeometry();
    });
    _progressBar->setRange(0, progressSteps);
    _progressBar->setAccessibleName(KVLocalizationCenter::localized("Progress of all conversions"));

    auto *inside = new QHBoxLayout(_slidingPart);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->setSpacing(10);
    inside->addWidget(_progressBar, 1);
    inside->addWidget(_status);
    _progressArea = new SlidingArea(_slidingPart);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 9, 10, 8);
    layout->setSpacing(12);
    layout->addWidget(_addButton);
    layout->addWidget(_loading);
    layout->addWidget(_progressArea, 1);
    layout->addWidget(_pauseButton);
    layout->addWidget(_startButton);
    _startButton->setDefault(true);
    _slidingPart->hide();
    _loading->hide();
    setCommands({});
    _loadIcons();
}

void KVFooterView::setProgress(double progress, const QString &status) {
    const double shown = std::isfinite(progress) ? std::clamp(progress, 0.0, 1.0) : 0.0;
    _progressBar->setValue(int(shown * progressSteps));
    _status->setText(status);
}

void KVFooterView::setShowsProgress(bool isShown) {
    if (_showsProgress == isShown) return;
    _showsProgress = isShown;
    _slide(isShown);
}

void KVFooterView::_slide(bool isIn) {
    const int duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    const QPoint below(0, slidingDistance);
    _sliding->stop();
    if (!isVisible() || duration <= 0) {
        _slidingPart->move(0, 0);
        _slidingPart->setVisible(isIn);
        _progressArea->updateGeometry();
        return;
    }
    _sliding->setStartValue(isIn ? below : QPoint());
    _sliding->setEndValue(isIn ? QPoint() : below);
    _sliding->setDuration(duration);
    _slidingPart->show();
    _progressArea->updateGeometry();
    _sliding->start();
}

void KVFooterView::setCommands(const Commands &commands) {
    const QWidget *focused = focusWidget();
    _pauseButton->setVisible(commands.canPause);
    _startButton->setVisible(commands.isAnyWaiting || !commands.canPause);
    _startButton->setEnabled(commands.canStart);
    // The keyboard stays at the buttons when one takes the place of the other.
    if (focused == _startButton && _startButton->isHidden()) _pauseButton->setFocus();
    if (focused == _pauseButton && _pauseButton->isHidden()) _startButton->setFocus();
}

void KVFooterView::setNumberOfLoadingFiles(int number) {
    _loading->setVisible(number > 0);
    if (number > 0) _loading->setText(KVLocalizationCenter::localized("Loading files: %@ left", {number}));
}

void KVFooterView::_loadIcons() {
    _addButton->setIcon(KVLook::icon("add", palette()));
    _startButton->setIcon(KVLook::icon("start", palette()));
    _pauseButton->setIcon(KVLook::icon("pause", palette()));
}

void KVFooterView::paintEvent(QPaintEvent *) {
    QPainter(this).fillRect(0, 0, width(), 1, KVLook::line(palette()));
}

void KVFooterView::changeEvent(QEvent *event) {
    if (event->type() == QEvent::PaletteChange) _loadIcons();
    QWidget::changeEvent(event);
}
