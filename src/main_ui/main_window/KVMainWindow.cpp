#include "main_ui/main_window/KVMainWindow.h"

#include "controllers/KVFileIntake.h"
#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/KVAppearance.h"
#include "main_ui/main_window/KVDropZoneView.h"
#include "main_ui/main_window/KVFooterView.h"
#include "main_ui/main_window/KVMainMenu.h"
#include "main_ui/main_window/details/KVFailureDetailsPanels.h"
#include "main_ui/main_window/history/KVHistoryView.h"
#include "main_ui/main_window/table_view/KVQueueTableWidget.h"
#include "queues/KVConversionQueue.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <map>

namespace {

// Many changes at once are looked at once.
constexpr int updateDelay = 40; // ms

/// How many rows of a queue are in each state.
std::map<KVConversionState, qsizetype> countedByState(const KVConversionQueue &queue) {
    std::map<KVConversionState, qsizetype> counts;
    for (const auto &conversion : queue.conversions())
        ++counts[conversion->state];
    return counts;
}

} // namespace

KVMainWindow::KVMainWindow(KVMainWindowDelegate &delegate, std::shared_ptr<KVConversionRowServices> services)
    : _delegate(delegate)
    , _model(new KVQueueTableModel(services, this))
    , _table(new KVQueueTableWidget)
    , _dropZone(new KVDropZoneView)
    , _footer(new KVFooterView)
    , _content(new QStackedWidget)
    , _historyDock(new QDockWidget(KVLocalizationCenter::localized("History")))
    , _detailsPanels(new KVFailureDetailsPanels(std::move(services), this)) {
    setWindowTitle(QStringLiteral("Kalvora"));
    setAcceptDrops(true);
    resize(680, 520);
    new KVAppearance(this); // the window owns it
    _buildContent();
    _buildHistory();
    _connectTable();
    _menu = new KVMainMenu(*this, _delegate);
    qApp->installEventFilter(this);
    _observe();
    _showContent(_model->rowCount() == 0);
    _updateCommands();
}

KVMainWindow::~KVMainWindow() {
    _historyDock->disconnect(this); // it hides, and says so, when only the base is left
    qApp->removeEventFilter(this);
}

bool KVMainWindow::showsDropZone() const {
    return _content->currentWidget() == _dropZone;
}

void KVMainWindow::_buildContent() {
    _table->setQueueModel(_model);
    _content->addWidget(_dropZone);
    _content->addWidget(_table);
    connect(_model, &KVQueueTableModel::dropZoneVisibilityChanged, this, &KVMainWindow::_showContent);
    connect(_dropZone, &KVDropZoneView::addFilesRequested, this, [this] { _delegate.open(); });
    connect(_footer, &KVFooterView::addFilesRequested, this, [this] { _delegate.open(); });
    connect(_footer, &KVFooterView::startRequested, this, [this] { _delegate.start(); });
    connect(_footer, &KVFooterView::pauseRequested, this, [this] { _delegate.pause(); });

    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(_content, 1);
    layout->addWidget(_footer);
    setCentralWidget(central);
}

void KVMainWindow::addNoticeBar(QWidget *bar) {
    auto *layout = static_cast<QVBoxLayout *>(centralWidget()->layout());
    layout->insertWidget(layout->indexOf(_footer), bar);
}

void KVMainWindow::_buildHistory() {
    auto *history = new KVHistoryView;
    connect(history, &KVHistoryView::openRequested, this,
            [this](const QUrl &url) { _delegate.openFile(url); });
    connect(history, &KVHistoryView::revealRequested, this,
            [this](const QUrl &url) { _delegate.showInFileManager(url); });
    _historyDock->setWidget(history);
    _historyDock->setTitleBarWidget(new QWidget(_historyDock)); // its place is fixed and the view has a title
    _historyDock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    addDockWidget(Qt::RightDockWidgetArea, _historyDock);
    _historyDock->hide();
    connect(_historyDock, &QDockWidget::visibilityChanged, this,
            [this](bool isVisible) { _menu->setShowsHistory(isVisible); });
}

void KVMainWindow::_connectTable() {
    connect(_table, &KVQueueTableWidget::rowMenuRequested, this,
            [this](const QModelIndex &index, const QPoint &position) {
                if (const auto row = _model->tableRow(index)) _showMenu(row->menu(), position);
            });
    connect(_table, &KVQueueTableWidget::presetMenuRequested, this,
            [this](const QModelIndex &index, const QPoint &position) {
                _showMenu(_presetItems(_model->mediaType(index)), position);
            });
    connect(_table, &KVQueueTableWidget::stopButtonPressed, this, [this](const QModelIndex &index) {
        if (const auto row = _model->tableRow(index)) row->stopButtonAction(_model->isOptionKeyDown());
    });
    connect(_table, &KVQueueTableWidget::detailsRequested, this, [this](const QModelIndex &index) {
        if (const auto row = _model->tableRow(index)) row->showDetails();
    });
}

void KVMainWindow::_observe() {
    _commandsUpdate.setSingleShot(true);
    connect(&_commandsUpdate, &QTimer::timeout, this, &KVMainWindow::_updateCommands);
    const auto update = [this] {
        if (!_commandsUpdate.isActive()) _commandsUpdate.start(updateDelay);
    };
    connect(_model, &QAbstractItemModel::dataChanged, this, update);
    connect(_model, &QAbstractItemModel::rowsInserted, this, update);
    connect(_model, &QAbstractItemModel::rowsRemoved, this, update);
    connect(_model, &QAbstractItemModel::modelReset, this, update);
    auto &center = KVNotificationCenter::defaultCenter();
    for (const auto &name : {ConversionQueueDidStart, ConversionQueueDidFinish})
        _observations.push_back(
            center.addObserver<KVConversionQueue>(name, [update](const auto &) { update(); }));
    _observations.push_back(center.addObserver<void>(ConversionQueueWasAffectedByAppleScript,
                                                     [update](const auto &) { update(); }));
    _observations.push_back(center.addObserver<void>(FileIntakeDidChangeLoading, [this](const auto &) {
        _footer->setNumberOfLoadingFiles(_delegate.numberOfLoadingFiles());
        _showContent(showsDropZone());
    }));
}

void KVMainWindow::_showContent(bool isAwaitingFiles) {
    const bool hadFocus = _table->hasFocus() || _dropZone->isAncestorOf(focusWidget());
    _content->setCurrentWidget(isAwaitingFiles ? static_cast<QWidget *>(_dropZone) : _table);
    // While nothing is queued there is nothing to start, and the drop zone adds files itself.
    _footer->setVisible(!isAwaitingFiles || _footer->isLoading());
    if (isAwaitingFiles) hideProgressBar();
    if (hadFocus) _content->currentWidget()->setFocus();
}

void KVMainWindow::_showMenu(const KVMenu &items, const QPoint &position) {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    KVMainMenu::fill(*menu, items);
    menu->popup(position);
}

KVMenu KVMainWindow::_presetItems(KVMediaFileType type) {
    KVMenu items;
    for (const KVPresetMenuItem &entry : _model->presetPopUpButton(type).items()) {
        if (entry.isSeparator) {
            items.push_back(KVMenuItem::separator());
            continue;
        }
        items.push_back(
            {.title = entry.title,
             .action = [this, type,
                        preset = entry.preset] { _model->presetPopUpButton(type).choosePreset(preset); },
             .toolTip = entry.toolTip,
             .isOn = entry.isOn});
    }
    return items;
}

void KVMainWindow::_updateCommands() {
    using enum KVConversionState;
    qsizetype running = 0;
    qsizetype pausedRows = 0;
    qsizetype unstarted = 0;
    qsizetype waitingRows = 0;
    KVMainMenu::State state;
    for (const auto &queue : KVConversionQueue::allQueues()) {
        auto counts = countedByState(*queue);
        const qsizetype waiting = counts[waitingToStart];
        running += counts[executing];
        pausedRows += counts[paused];
        waitingRows += waiting;
        if (!queue->isWorking()) unstarted += waiting; // the others come to their turn by themselves
        state.hasFinished |= counts[finished] > 0;
        state.hasInactive |= waiting > 0;
        state.canMerge |= waiting > 1;
        state.canMakeDVD |= waiting > 0 && queue->mediaFileType() == KVMediaFileType::video;
    }
    state.canStart = unstarted + pausedRows > 0;
    state.canPause = running > 0;
    state.hasInactive |= state.hasFinished;
    _menu->setState(state);
    _footer->setCommands({.canStart = state.canStart,
                          .canPause = state.canPause,
                          .isAnyWaiting = waitingRows + pausedRows > 0});
}

void KVMainWindow::showDetails(const std::shared_ptr<KVConversion> &conversion) {
    _detailsPanels->show(conversion);
}

void KVMainWindow::toggleHistory() {
    _historyDock->setVisible(!_historyDock->isVisible());
}

void KVMainWindow::showProgressBar() {
    _footer->setShowsProgress(true);
}

void KVMainWindow::setProgress(double progress, const QString &status) {
    _footer->setProgress(progress, status);
}

void KVMainWindow::hideProgressBar() {
    _footer->setShowsProgress(false);
}

void KVMainWindow::closeEvent(QCloseEvent *event) {
    // Closing the window ends the application, through the same questions.
    event->ignore();
    _delegate.terminate();
}

void KVMainWindow::dragEnterEvent(QDragEnterEvent *event) {
    if (!event->mimeData()->hasUrls()) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    _dropZone->setIsTargeted(true);
}

void KVMainWindow::dragLeaveEvent(QDragLeaveEvent *) {
    _dropZone->setIsTargeted(false);
}

void KVMainWindow::dropEvent(QDropEvent *event) {
    _dropZone->setIsTargeted(false);
    const QList<QUrl> urls = event->mimeData()->urls();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // The program that the files come from waits until this returns; what they need asked may take a while.
    QMetaObject::invokeMethod(
        this, [this, urls] { _delegate.addFiles(urls); }, Qt::QueuedConnection);
}

bool KVMainWindow::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const auto *key = static_cast<QKeyEvent *>(event);
        // Window managers keep clicks with the Alt key for themselves; then the Shift key does the same.
        if (key->key() == Qt::Key_Alt || key->key() == Qt::Key_Shift)
            _model->setIsOptionKeyDown(event->type() == QEvent::KeyPress);
    } else if (event->type() == QEvent::ApplicationDeactivate) {
        _model->setIsOptionKeyDown(false);
    }
    return QMainWindow::eventFilter(watched, event);
}
