#include "main_ui/main_window/KVMainWindow.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVDropZoneView.h"
#include "main_ui/main_window/KVFooterView.h"
#include "main_ui/main_window/history/KVHistoryView.h"
#include "main_ui/main_window/table_view/KVQueueTableWidget.h"
#include "queues/KVConversionQueue.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QString localized(const char *key) {
    return KVLocalizationCenter::localized(key);
}

} // namespace

KVMainWindow::KVMainWindow(KVMainWindowDelegate &delegate, std::shared_ptr<KVConversionRowServices> services)
    : _delegate(delegate)
    , _model(new KVQueueTableModel(std::move(services), this))
    , _table(new KVQueueTableWidget)
    , _dropZone(new KVDropZoneView)
    , _footer(new KVFooterView)
    , _content(new QStackedWidget)
    , _historyDock(new QDockWidget(localized("History"))) {
    setWindowTitle(QStringLiteral("Kalvora"));
    setAcceptDrops(true);
    resize(680, 520);
    _buildContent();
    _buildMenus();
    qApp->installEventFilter(this);

    const auto update = [this](const auto &) { _updateCommands(); };
    auto &center = KVNotificationCenter::defaultCenter();
    for (const auto &name : {ConversionQueueDidAddConversion, ConversionDidStart, ConversionDidFinish})
        _observations.push_back(center.addObserver<KVConversion>(name, update));
    for (const auto &name : {ConversionQueueDidStart, ConversionQueueDidFinish})
        _observations.push_back(center.addObserver<KVConversionQueue>(name, update));
    _observations.push_back(center.addObserver<void>(ConversionQueueWasAffectedByAppleScript, update));
    _updateCommands();
}

KVMainWindow::~KVMainWindow() {
    qApp->removeEventFilter(this);
}

bool KVMainWindow::showsDropZone() const {
    return _content->currentWidget() == _dropZone;
}

void KVMainWindow::_buildContent() {
    _table->setQueueModel(_model);
    _content->addWidget(_dropZone);
    _content->addWidget(_table);
    _content->setCurrentWidget(_model->rowCount() == 0 ? static_cast<QWidget *>(_dropZone) : _table);
    connect(_model, &KVQueueTableModel::dropZoneVisibilityChanged, this, [this](bool isVisible) {
        _content->setCurrentWidget(isVisible ? static_cast<QWidget *>(_dropZone) : _table);
        if (isVisible) hideProgressBar();
        _updateCommands();
    });
    connect(_dropZone, &KVDropZoneView::addFilesRequested, this, [this] { _delegate.open(); });

    connect(_table, &KVQueueTableWidget::rowMenuRequested, this, &KVMainWindow::_showRowMenu);
    connect(_table, &KVQueueTableWidget::presetMenuRequested, this, &KVMainWindow::_showPresetMenu);
    connect(_table, &KVQueueTableWidget::stopButtonPressed, this, [this](const QModelIndex &index) {
        if (const auto row = _model->tableRow(index)) row->stopButtonAction(_model->isOptionKeyDown());
    });

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
}

void KVMainWindow::_buildMenus() {
    QMenu *file = menuBar()->addMenu(localized("&File"));
    file->addAction(localized("&Add Files..."), QKeySequence::Open, this, [this] { _delegate.open(); });
    file->addSeparator();
    file->addAction(localized("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), this,
                    [this] { _delegate.terminate(); });

    QMenu *queue = menuBar()->addMenu(localized("&Queue"));
    _buildQueueMenu(*queue);

    QMenu *view = menuBar()->addMenu(localized("&View"));
    QAction *history = view->addAction(localized("&History"), QKeySequence(Qt::CTRL | Qt::Key_Y), this,
                                       [this] { toggleHistory(); });
    history->setCheckable(true);
    connect(_historyDock, &QDockWidget::visibilityChanged, history, &QAction::setChecked);

    QMenu *help = menuBar()->addMenu(localized("&Help"));
    help->addAction(localized("&Release Notes"), this, [this] { _delegate.showReleaseNotes(); });
    help->addAction(localized("&Debug Log"), this, [this] { _delegate.showDebugPane(); });
}

void KVMainWindow::_buildQueueMenu(QMenu &menu) {
    menu.addAction(localized("&Start"), QKeySequence(Qt::CTRL | Qt::Key_Return), this,
                   [this] { _delegate.start(); });
    menu.addAction(localized("&Pause"), QKeySequence(Qt::CTRL | Qt::Key_Period), this,
                   [this] { _delegate.pause(); });
    menu.addSeparator();
    menu.addAction(localized("&Merge All"), QKeySequence(Qt::CTRL | Qt::Key_M), this,
                   [this] { _delegate.mergeAll(); });
    menu.addAction(localized("Make &DVD"), QKeySequence(Qt::CTRL | Qt::Key_D), this,
                   [this] { _delegate.makeDVD(); });
    menu.addSeparator();

    struct Tag {
        const char *title;
        int tag;
    };
    constexpr std::array tags{Tag{"All", -1}, Tag{"Video", 0}, Tag{"Audio", 1}, Tag{"Picture", 2}};
    QMenu *finished = menu.addMenu(localized("Clear &Finished"));
    QMenu *inactive = menu.addMenu(localized("Clear &Inactive"));
    for (const auto &[title, tag] : tags) {
        finished->addAction(localized(title), this,
                            [this, tag = tag] { _delegate.clearFinishedConversionsInQueue(tag); });
        inactive->addAction(localized(title), this,
                            [this, tag = tag] { _delegate.clearInactiveConversionsInQueue(tag); });
    }
}

void KVMainWindow::fill(QMenu &menu, const KVMenu &items) {
    menu.setToolTipsVisible(true);
    for (const KVMenuItem &item : items) {
        if (item.isSeparator) {
            menu.addSeparator();
            continue;
        }
        // An ampersand in a file's name is no shortcut.
        const QString title = QString(item.title).replace('&', "&&");
        if (!item.submenu.empty()) {
            fill(*menu.addMenu(title), item.submenu);
            continue;
        }
        QAction *action = menu.addAction(title);
        action->setEnabled(item.isEnabled);
        action->setToolTip(item.toolTip);
        action->setCheckable(item.isOn);
        action->setChecked(item.isOn);
        if (item.action) QObject::connect(action, &QAction::triggered, action, item.action);
    }
}

void KVMainWindow::_showRowMenu(const QModelIndex &index, const QPoint &position) {
    const auto row = _model->tableRow(index);
    if (!row) return;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fill(*menu, row->menu());
    menu->popup(position);
}

void KVMainWindow::_showPresetMenu(const QModelIndex &index, const QPoint &position) {
    const KVMediaFileType type = _model->mediaType(index);
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    KVMenu items;
    for (const KVPresetMenuItem &entry : _model->presetPopUpButton(type).items()) {
        if (entry.isSeparator)
            items.push_back(KVMenuItem::separator());
        else
            items.push_back(
                {.title = entry.title,
                 .action = [this, type,
                            preset = entry.preset] { _model->presetPopUpButton(type).choosePreset(preset); },
                 .toolTip = entry.toolTip,
                 .isOn = entry.isOn});
    }
    fill(*menu, items);
    menu->popup(position);
}

void KVMainWindow::_updateCommands() {
    const auto queues = KVConversionQueue::allQueues();
    const bool isWorking = KVConversionQueue::isAnyQueueWorking();
    const auto has = [&](KVConversionState state) {
        return std::ranges::any_of(queues, [state](const auto &queue) {
            return std::ranges::any_of(
                queue->conversions(), [state](const auto &conversion) { return conversion->state == state; });
        });
    };
    const bool hasRunning = isWorking && has(KVConversionState::executing);
    _footer->setIsWorking(hasRunning);
    _footer->setCanStart(hasRunning || has(KVConversionState::waitingToStart) ||
                         has(KVConversionState::paused));
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
        if (key->key() == Qt::Key_Alt) _model->setIsOptionKeyDown(event->type() == QEvent::KeyPress);
    } else if (event->type() == QEvent::ApplicationDeactivate) {
        _model->setIsOptionKeyDown(false);
    }
    return QMainWindow::eventFilter(watched, event);
}
