#pragma once

#include "controllers/KVConversionTableRow.h"
#include "controllers/KVMenuItem.h"

#include <QMainWindow>

#include <memory>

class KVDropZoneView;
class KVFooterView;
class KVHistoryView;
class KVQueueTableModel;
class KVQueueTableWidget;
class QDockWidget;
class QMenu;
class QStackedWidget;

/// What the main window asks of the application.
class KVMainWindowDelegate {
  public:
    virtual ~KVMainWindowDelegate() = default;
    virtual void addFiles(const QList<QUrl> &urls) = 0;
    /// The open panel.
    virtual void open() = 0;
    virtual void start() = 0;
    virtual void pause() = 0;
    virtual void mergeAll() = 0;
    virtual void makeDVD() = 0;
    /// Tags: -1 all queues, 0 video, 1 audio, 2 picture.
    virtual void clearFinishedConversionsInQueue(int tag) = 0;
    virtual void clearInactiveConversionsInQueue(int tag) = 0;
    virtual void openFile(const QUrl &url) = 0;
    virtual void showInFileManager(const QUrl &url) = 0;
    virtual void showReleaseNotes() = 0;
    virtual void showDebugPane() = 0;
    /// Asks to quit; the answer decides whether the application ends.
    virtual void terminate() = 0;
};

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

    /// Shows or hides the history.
    void toggleHistory();
    void showProgressBar();
    void setProgress(double progress, const QString &status);
    void hideProgressBar();

    /// Fills a menu of Qt's with a menu of ours.
    static void fill(QMenu &menu, const KVMenu &items);

  protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    void _buildContent();
    void _buildMenus();
    void _buildQueueMenu(QMenu &menu);
    void _showRowMenu(const QModelIndex &index, const QPoint &position);
    void _showPresetMenu(const QModelIndex &index, const QPoint &position);
    void _updateCommands();

    KVMainWindowDelegate &_delegate;
    KVQueueTableModel *_model;
    KVQueueTableWidget *_table;
    KVDropZoneView *_dropZone;
    KVFooterView *_footer;
    QStackedWidget *_content;
    QDockWidget *_historyDock;
    std::vector<KVNotificationCenter::Observation> _observations;
};
