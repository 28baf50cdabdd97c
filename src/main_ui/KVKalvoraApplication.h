#pragma once

#include "controllers/KVApplicationController.h"
#include "controllers/KVIntakeRefusals.h"
#include "main_ui/main_window/KVMainWindow.h"
#include "platform/desktop/KVDesktop.h"

#include <atomic>
#include <memory>

class KVDebugPane;

/// The application with its window: joins the controllers, the window and the desktop. Main thread.
class KVKalvoraApplication : public KVMainWindowDelegate,
                             public KVApplicationServices,
                             public KVConversionProgressBar,
                             public std::enable_shared_from_this<KVKalvoraApplication> {
  public:
    static std::shared_ptr<KVKalvoraApplication> create();
    ~KVKalvoraApplication() override;

    /// Shows the window, runs the start-up and takes in what was given on the command line.
    void launch(const QList<QUrl> &urls);
    /// Ends without a question, as the system asks for it.
    void quit();

    KVMainWindow &window() { return *_window; }
    KVApplicationController &controller() { return *_controller; }

    /// Files from another start of the program.
    void openFiles(const QList<QUrl> &urls);
    void bringToFront();
    /// Also what is no file: passed over, with a log line. True if anything was taken in or is about to be.
    bool addURLs(const QList<QUrl> &urls);

    void addFiles(const QList<QUrl> &urls) override;
    void open() override;
    void openFolder() override;
    int numberOfLoadingFiles() const override;
    void start() override;
    void pause() override;
    void mergeAll() override;
    void makeDVD() override;
    void clearFinishedConversionsInQueue(int tag) override;
    void clearInactiveConversionsInQueue(int tag) override;
    void openFile(const QUrl &url) override;
    void showInFileManager(const QUrl &url) override;
    void showReleaseNotes() override;
    void showDebugPane() override;
    void terminate() override;

    void postUserNotification(const QString &title, const QString &subtitle, const QString &topic) override;
    void playFinishedSound() override;
    void putComputerToSleep() override;
    void requestUserAttention() override;
    void openURL(const QUrl &url) override;
    void setKeepsAwake(bool keepsAwake) override;
    void showTaskbarProgress(std::optional<double> progress) override;
    QString countryCode() const override;
    bool isSandboxed() const override;

    bool isVisible() const override;
    void slideIn(const QString &statusString) override;
    void slideOut() override;
    void setProgress(double progressValue, const QString &statusString) override;

  private:
    class RowServices;
    KVKalvoraApplication();
    void _start();
    void _reportDamagedStore(const QString &path, const QString &keptPath);

    KVDesktop _desktop;
    std::unique_ptr<KVMainWindow> _window;
    std::unique_ptr<KVDebugPane> _debugPane;
    std::shared_ptr<KVApplicationController> _controller;
    std::shared_ptr<KVIntakeRefusals> _refusals = std::make_shared<KVIntakeRefusals>();
    QList<QUrl> _urlsAtLaunch;
    bool _hasLaunched = false;
    bool _isTerminating = false;
    std::shared_ptr<const std::atomic<bool>> _wasStoreDamaged; ///< Set from any thread.
};
