#pragma once

#include "controllers/KVConversionTableRow.h"
#include "controllers/KVMenuItem.h"
#include "main_ui/main_window/KVMainWindowDelegate.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>

class KVAppearance;
class KVDropZoneView;
class KVFailureDetailsPanels;
class KVFooterView;
class KVHistoryView;
class KVMainMenu;
class KVQueueTableModel;
class KVQueueTableWidget;
class QDockWidget;
class QStackedWidget;

/// The window: the queue table or the drop zone, the footer, the history beside, the menus. Main thread.
class KVMainWindow : public QMainWindow {
    Q_OBJECT

  public:
    KVMainWindow(KVMainWindowDelegate &delegate, std::shared_ptr<KVConversionRowServices> services);
    ~KVMainWindow() override;

    KVQueueTableModel &tableModel() { return *_model; }
    KVQueueTableWidget &tableWidget() { return *_table; }
    KVFooterView &footerView() { return *_footer; }
    KVDropZoneView &dropZone() { return *_dropZone; }
    bool showsDropZone() const;
    /// Puts the bar above the footer. The window owns it from now on.
    void addNoticeBar(QWidget *bar);

    /// Opens the panel with what is known about a failure or about warnings, or raises it.
    void showDetails(const std::shared_ptr<KVConversion> &conversion);
    /// Shows or hides the history.
    void toggleHistory();
    void showProgressBar();
    void setProgress(double progress, const QString &status);
    void hideProgressBar();

  protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    void _buildContent();
    void _buildHistory();
    void _connectTable();
    void _observe();
    void _showContent(bool isAwaitingFiles);
    void _showMenu(const KVMenu &items, const QPoint &position);
    KVMenu _presetItems(KVMediaFileType type);
    void _updateCommands();

    KVMainWindowDelegate &_delegate;
    KVQueueTableModel *_model;
    KVQueueTableWidget *_table;
    KVDropZoneView *_dropZone;
    KVFooterView *_footer;
    QStackedWidget *_content;
    QDockWidget *_historyDock;
    KVMainMenu *_menu = nullptr;
    KVFailureDetailsPanels *_detailsPanels;
    QTimer _commandsUpdate; ///< Gathers many changes into one update.
    std::vector<KVNotificationCenter::Observation> _observations;
};
