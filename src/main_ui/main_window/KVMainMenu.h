#pragma once

#include "controllers/KVMenuItem.h"

#include <QObject>
#include <QString>

class KVMainWindow;
class KVMainWindowDelegate;
class QAction;
class QKeySequence;
class QMenu;

/// The menu bar: everything that the window can do, so that all of it is reached with the keyboard.
class KVMainMenu : public QObject {
    Q_OBJECT

  public:
    /// What there is to do: decides which commands are enabled.
    struct State {
        bool canStart = false;
        bool canPause = false;
        bool canClearFinished = false; ///< Some row has ended without a failure.
        bool hasInactive = false;
        bool canMerge = false;
        QString reasonAgainstMerge = {}; ///< Why not, if rows wait that cannot be merged.
        bool canMakeDVD = false;
    };

    KVMainMenu(KVMainWindow &window, KVMainWindowDelegate &delegate);

    void setState(const State &state);
    void setShowsHistory(bool isShown);
    /// What the command Undo takes back; empty disables it.
    void setUndoTitle(const QString &title);

    /// Fills a menu of Qt's with a menu of ours.
    static void fill(QMenu &menu, const KVMenu &items);

  private:
    void _buildFileMenu(QMenu &menu);
    void _buildEditMenu(QMenu &menu);
    void _buildQueueMenu(QMenu &menu);
    void _buildViewMenu(QMenu &menu);
    void _buildHelpMenu(QMenu &menu);
    void _fillConversionMenu(QMenu &menu);
    void _fillPresetSettingsMenu(QMenu &menu);
    QMenu *_clearMenu(QMenu &menu, const char *title, void (KVMainWindowDelegate::*clear)(int));
    QAction *_add(QMenu &menu, const char *title, const QKeySequence &keys,
                  void (KVMainWindowDelegate::*command)());

    KVMainWindow &_window;
    KVMainWindowDelegate &_delegate;
    QAction *_undo = nullptr;
    QAction *_start = nullptr;
    QAction *_pause = nullptr;
    QAction *_mergeAll = nullptr;
    QAction *_makeDVD = nullptr;
    QMenu *_clearFinished = nullptr;
    QMenu *_clearInactive = nullptr;
    QAction *_history = nullptr;
};
