#include "main_ui/main_window/KVFooterView.h"

#include "kvcore/KVLocalizationCenter.h"

#include <QHBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

// Fine enough that a long film still moves the bar.
constexpr int progressSteps = 1000;

} // namespace

KVFooterView::KVFooterView(QWidget *parent)
    : QWidget(parent)
    , _startButton(new QPushButton)
    , _progressBar(new QProgressBar)
    , _status(new QLabel) {
    auto *add = new QPushButton(QIcon::fromTheme(QStringLiteral("list-add")),
                                KVLocalizationCenter::localized("Add Files..."));
    connect(add, &QPushButton::clicked, this, &KVFooterView::addFilesRequested);
    connect(_startButton, &QPushButton::clicked, this, [this] {
        if (_isWorking)
            Q_EMIT pauseRequested();
        else
            Q_EMIT startRequested();
    });
    _progressBar->setRange(0, progressSteps);
    _progressBar->setTextVisible(false);
    _progressBar->setAccessibleName(KVLocalizationCenter::localized("Progress of all conversions"));
    _status->setMinimumWidth(_status->fontMetrics().averageCharWidth() * 14);

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(add);
    layout->addWidget(_progressBar, 1);
    layout->addWidget(_status);
    layout->addStretch(0);
    layout->addWidget(_startButton);
    setIsWorking(false);
    setShowsProgress(false);
}

void KVFooterView::setProgress(double progress, const QString &status) {
    const double shown = std::isfinite(progress) ? std::clamp(progress, 0.0, 1.0) : 0.0;
    _progressBar->setValue(int(shown * progressSteps));
    _status->setText(status);
}

void KVFooterView::setShowsProgress(bool isShown) {
    // The place stays, so that nothing jumps.
    QSizePolicy policy = _progressBar->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    _progressBar->setSizePolicy(policy);
    _progressBar->setVisible(isShown);
    _status->setVisible(isShown);
}

void KVFooterView::setIsWorking(bool isWorking) {
    _isWorking = isWorking;
    _startButton->setText(KVLocalizationCenter::localized(isWorking ? "Pause All" : "Start"));
    _startButton->setDefault(true);
}

void KVFooterView::setCanStart(bool canStart) {
    _startButton->setEnabled(canStart);
}
