#include "main_ui/main_window/KVMainMenu.h"

#include "core/KVUndoStack.h"
#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVMainWindow.h"
#include "main_ui/main_window/KVMainWindowDelegate.h"
#include "main_ui/main_window/table_view/KVQueueTableWidget.h"
#include "main_ui/options/KVPresetSettingsWindow.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <array>

KVMainMenu::KVMainMenu(KVMainWindow &window, KVMainWindowDelegate &delegate)
    : QObject(&window)
    , _window(window)
    , _delegate(delegate) {
    QMenuBar *bar = window.menuBar();
    _buildFileMenu(*bar->addMenu(KVLocalizationCenter::localized("&File")));
    _buildEditMenu(*bar->addMenu(KVLocalizationCenter::localized("&Edit")));
    _buildQueueMenu(*bar->addMenu(KVLocalizationCenter::localized("&Queue")));
    QMenu *conversion = bar->addMenu(KVLocalizationCenter::localized("&Conversion"));
    connect(conversion, &QMenu::aboutToShow, this, [this, conversion] { _fillConversionMenu(*conversion); });
    _buildViewMenu(*bar->addMenu(KVLocalizationCenter::localized("&View")));
    _buildHelpMenu(*bar->addMenu(KVLocalizationCenter::localized("&Help")));
}

QAction *KVMainMenu::_add(QMenu &menu, const char *title, const QKeySequence &keys,
                          void (KVMainWindowDelegate::*command)()) {
    return menu.addAction(KVLocalizationCenter::localized(title), keys, this,
                          [this, command] { (_delegate.*command)(); });
}

void KVMainMenu::_buildFileMenu(QMenu &menu) {
    _add(menu, "&Add Files...", QKeySequence::Open, &KVMainWindowDelegate::open);
    _add(menu, "Add F&older...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O),
         &KVMainWindowDelegate::openFolder);
    menu.addSeparator();
    _add(menu, "&Quit", QKeySequence(Qt::CTRL | Qt::Key_Q), &KVMainWindowDelegate::terminate);
}

void KVMainMenu::_buildEditMenu(QMenu &menu) {
    _undo = menu.addAction({}, QKeySequence::Undo, &_window, &KVMainWindow::undo);
    setUndoTitle(KVUndoStack::shared().title());
    menu.addSeparator();
    menu.addAction(KVLocalizationCenter::localized("Select &All"), QKeySequence::SelectAll,
                   &_window.tableWidget(), &QAbstractItemView::selectAll);
}

void KVMainMenu::setUndoTitle(const QString &title) {
    _undo->setEnabled(!title.isEmpty());
    _undo->setText(title.isEmpty() ? KVLocalizationCenter::localized("&Undo")
                                   : KVLocalizationCenter::localized("&Undo %@", {title}));
}

void KVMainMenu::_buildQueueMenu(QMenu &menu) {
    menu.setToolTipsVisible(true);
    _start = _add(menu, "&Start", QKeySequence(Qt::CTRL | Qt::Key_Return), &KVMainWindowDelegate::start);
    _pause = _add(menu, "&Pause", QKeySequence(Qt::CTRL | Qt::Key_Period), &KVMainWindowDelegate::pause);
    menu.addSeparator();
    _mergeAll = _add(menu, "&Merge All", QKeySequence(Qt::CTRL | Qt::Key_M), &KVMainWindowDelegate::mergeAll);
    _makeDVD = _add(menu, "Make &DVD", QKeySequence(Qt::CTRL | Qt::Key_D), &KVMainWindowDelegate::makeDVD);
    QMenu *settings = menu.addMenu(KVLocalizationCenter::localized("Preset &Settings"));
    connect(settings, &QMenu::aboutToShow, this, [this, settings] { _fillPresetSettingsMenu(*settings); });
    menu.addSeparator();
    _clearFinished =
        _clearMenu(menu, "Clear &Finished", &KVMainWindowDelegate::clearFinishedConversionsInQueue);
    _clearInactive =
        _clearMenu(menu, "Clear &Inactive", &KVMainWindowDelegate::clearInactiveConversionsInQueue);
}

QMenu *KVMainMenu::_clearMenu(QMenu &menu, const char *title, void (KVMainWindowDelegate::*clear)(int)) {
    struct Tag {
        const char *title;
        int tag;
    };
    QMenu *submenu = menu.addMenu(KVLocalizationCenter::localized(title));
    for (const Tag &entry : std::array{Tag{"All", -1}, Tag{"Video", 0}, Tag{"Audio", 1}, Tag{"Picture", 2}})
        submenu->addAction(KVLocalizationCenter::localized(entry.title), this,
                           [this, clear, tag = entry.tag] { (_delegate.*clear)(tag); });
    return submenu;
}

void KVMainMenu::_buildViewMenu(QMenu &menu) {
    _history = menu.addAction(KVLocalizationCenter::localized("&History"), QKeySequence(Qt::CTRL | Qt::Key_Y),
                              this, [this] { _window.toggleHistory(); });
    _history->setCheckable(true);
}

void KVMainMenu::_buildHelpMenu(QMenu &menu) {
    _add(menu, "&Release Notes", {}, &KVMainWindowDelegate::showReleaseNotes);
    _add(menu, "&Debug Log", {}, &KVMainWindowDelegate::showDebugPane);
}

void KVMainMenu::_fillConversionMenu(QMenu &menu) {
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu *>(Qt::FindDirectChildrenOnly)); // which the clearing leaves behind
    fill(menu, _window.tableWidget().rowsForCommand().menu());
}

void KVMainMenu::_fillPresetSettingsMenu(QMenu &menu) {
    menu.clear();
    for (const KVMediaFileType type : KVQueueTableViewController::groupOrder) {
        const auto preset = _window.tableModel().presetPopUpButton(type).selectedPreset();
        const QString title =
            QStringLiteral("%1: %2...").arg(KVMediaFileTypes::localizedName(type), preset->name);
        menu.addAction(title, this, [this, preset] { KVPresetSettingsWindow(preset, &_window).exec(); });
    }
}

void KVMainMenu::setState(const State &state) {
    _start->setEnabled(state.canStart);
    _pause->setEnabled(state.canPause);
    _mergeAll->setEnabled(state.canMerge);
    _mergeAll->setToolTip(state.canMerge ? QString() : state.reasonAgainstMerge);
    _makeDVD->setEnabled(state.canMakeDVD);
    _clearFinished->setEnabled(state.canClearFinished);
    _clearInactive->setEnabled(state.hasInactive);
}

void KVMainMenu::setShowsHistory(bool isShown) {
    _history->setChecked(isShown);
}

void KVMainMenu::fill(QMenu &menu, const KVMenu &items) {
    menu.setToolTipsVisible(true);
    for (const KVMenuItem &item : items) {
        if (item.isSeparator) {
            menu.addSeparator();
            continue;
        }
        // An ampersand in a file's name is no shortcut.
        const QString title = QString(item.title).replace('&', "&&");
        if (!item.submenu.empty()) {
            QMenu *submenu = menu.addMenu(title);
            submenu->menuAction()->setEnabled(item.isEnabled);
            submenu->menuAction()->setToolTip(item.toolTip);
            fill(*submenu, item.submenu);
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
