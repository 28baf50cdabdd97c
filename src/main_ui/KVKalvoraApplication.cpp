#include "main_ui/KVKalvoraApplication.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVMainThread.h"
#include "main_ui/KVDebugPane.h"
#include "main_ui/KVWhatsNewWindowController.h"
#include "main_ui/main_window/KVFooterView.h"
#include "main_ui/main_window/KVNoticeBar.h"
#include "main_ui/main_window/refusals/KVRefusalsNotice.h"
#include "main_ui/main_window/subtitles/KVSubtitleEncodingChooser.h"
#include "main_ui/questions/KVWindowQuestions.h"
#include "platform/KVFileManager.h"
#include "platform/KVUserQuestions.h"
#include "util/KVBackgroundQueue.h"
#include "util/KVPictureLibrary.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QIcon>

// The icons stand in a static library, from which the linker takes only what is asked for by name.
static void loadIcons() {
    Q_INIT_RESOURCE(kalvora);
}

/// What a row's menu needs; outlived by the application.
class KVKalvoraApplication::RowServices : public KVConversionRowServices {
  public:
    explicit RowServices(KVKalvoraApplication &application)
        : _application(application) {}

    void addFiles(const QList<QUrl> &urls) override { _application.addFiles(urls); }
    void showInFileManager(const QUrl &url) override { _application.showInFileManager(url); }
    void showDetails(const std::shared_ptr<KVConversion> &conversion) override {
        _application._window->showDetails(conversion);
    }
    std::optional<QString> chooseSubtitleEncoding(const KVVideoFile &videoFile,
                                                  const QUrl &subtitles) override {
        return KVSubtitleEncodingChooser(subtitles, videoFile.subtitlesFileEncoding,
                                         _application._window.get())
            .chooseEncoding();
    }

  private:
    KVKalvoraApplication &_application;
};

std::shared_ptr<KVKalvoraApplication> KVKalvoraApplication::create() {
    loadIcons();
    // The first reads come while the application is being made.
    const auto current = std::make_shared<std::weak_ptr<KVKalvoraApplication>>(); // main thread
    const auto wasStoreDamaged = std::make_shared<std::atomic<bool>>(false);
    KVPreferences::setDamageReporter([=](const QString &path, const QString &keptPath) {
        *wasStoreDamaged = true;
        KVMainThread::async([current, path, keptPath] {
            if (const auto application = current->lock()) application->_reportDamagedStore(path, keptPath);
        });
    });
    auto application = std::shared_ptr<KVKalvoraApplication>(new KVKalvoraApplication);
    application->_wasStoreDamaged = wasStoreDamaged;
    *current = application;
    return application;
}

KVKalvoraApplication::KVKalvoraApplication()
    : _window(std::make_unique<KVMainWindow>(*this, std::make_shared<RowServices>(*this)))
    , _controller(std::make_shared<KVApplicationController>(KVApplicationController::Surroundings{
          .services = *this,
          .progressBar = *this,
          // With a damaged store it is no first start, and the window reports the damage.
          .showReleaseNotes =
              [this] {
                  if (!*_wasStoreDamaged) showReleaseNotes();
              },
          .terminate = [this] { terminate(); },
      })) {
    KVUserQuestion::setResponder(std::make_shared<KVWindowQuestions>(_window.get()));
    _controller->setObserver(_refusals);
    new KVRefusalsNotice(*_window, _refusals, [this](const QUrl &disc) { addFiles({disc}); });
}

KVKalvoraApplication::~KVKalvoraApplication() {
    // Whoever still holds the controller must not reach us through it.
    _controller->applicationWillTerminate();
    KVUserQuestion::setResponder(nullptr);
    KVPreferences::setDamageReporter({});
}

void KVKalvoraApplication::launch(const QList<QUrl> &urls) {
    KVMediaFile::setMakesThumbnails(true);
    _urlsAtLaunch = urls;
    _window->show();
    // The window is painted before anything that may take time.
    KVMainThread::after(0, [self = weak_from_this()] {
        if (const auto alive = self.lock()) alive->_start();
    });
}

void KVKalvoraApplication::_start() {
    // Drawn in seven sizes at once.
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/kalvora.svg")));
    _controller->applicationDidFinishLaunching();
    // The first picture need not wait for its library.
    KVBackgroundQueue::shared().async([](const std::stop_token &) { KVPictureLibrary::prepare(); });
    _hasLaunched = true;
    if (const auto urls = std::exchange(_urlsAtLaunch, {}); !urls.isEmpty()) addFiles(urls);
}

void KVKalvoraApplication::_reportDamagedStore(const QString &path, const QString &keptPath) {
    auto *bar = new KVNoticeBar(QStringLiteral("failed"));
    _window->addNoticeBar(bar);
    bar->addButton(KVLocalizationCenter::localized("Show in Finder"),
                   [this, keptPath] { showInFileManager(QUrl::fromLocalFile(keptPath)); });
    bar->setNotice(KVLocalizationCenter::localized("The preferences in %@ were damaged; they are kept as %@",
                                                   {path, keptPath}));
    QObject::connect(bar, &KVNoticeBar::closed, bar, &QObject::deleteLater);
}

void KVKalvoraApplication::openFiles(const QList<QUrl> &urls) {
    bringToFront();
    if (_hasLaunched)
        addFiles(urls);
    else
        _urlsAtLaunch += urls;
}

void KVKalvoraApplication::bringToFront() {
    _window->show();
    _window->raise();
    _window->activateWindow();
}

void KVKalvoraApplication::addFiles(const QList<QUrl> &urls) {
    _controller->addFiles(urls);
}

bool KVKalvoraApplication::addURLs(const QList<QUrl> &urls) {
    bool isAnyAdded = false;
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            isAnyAdded |= _controller->addFiles({url});
        else
            _controller->addURLs({url});
    }
    return isAnyAdded || _controller->isLoading();
}

void KVKalvoraApplication::open() {
    addFiles(KVUserQuestion::runModalOnMainThread(
        KVOpenPanel{.canChooseFiles = true, .canChooseFolders = true, .allowsMultipleSelection = true}));
}

void KVKalvoraApplication::openFolder() {
    addFiles(KVUserQuestion::runModalOnMainThread(KVOpenPanel{}));
}

int KVKalvoraApplication::numberOfLoadingFiles() const {
    return _controller->numberOfLoadingFiles();
}

void KVKalvoraApplication::start() {
    _controller->start();
}

void KVKalvoraApplication::pause() {
    _controller->pause();
}

void KVKalvoraApplication::mergeAll() {
    _controller->mergeAll();
}

void KVKalvoraApplication::makeDVD() {
    _controller->makeDVD();
}

void KVKalvoraApplication::clearFinishedConversionsInQueue(int tag) {
    _controller->clearFinishedConversionsInQueue(tag);
}

void KVKalvoraApplication::clearInactiveConversionsInQueue(int tag) {
    _controller->clearInactiveConversionsInQueue(tag);
}

void KVKalvoraApplication::openFile(const QUrl &url) {
    if (QFileInfo::exists(url.toLocalFile())) {
        QDesktopServices::openUrl(url);
        return;
    }
    KVUserQuestion::runModalOnMainThread(
        KVAlert{.messageText = KVLocalizationCenter::localized("'%@' has been moved or deleted.",
                                                               {KVFileManager::lastPathComponent(url)}),
                .buttons = {KVLocalizationCenter::localized("OK")}});
}

void KVKalvoraApplication::showInFileManager(const QUrl &url) {
    _desktop.showInFileManager(url);
}

void KVKalvoraApplication::showReleaseNotes() {
    KVWhatsNewWindowController::runModal(_window.get());
}

void KVKalvoraApplication::showDebugPane() {
    if (!_debugPane) _debugPane = std::make_unique<KVDebugPane>();
    _debugPane->show();
    _debugPane->raise();
}

void KVKalvoraApplication::terminate() {
    if (_isTerminating) return; // the question is open already
    _isTerminating = true;
    const auto reply = _controller->applicationShouldTerminate();
    _isTerminating = false;
    // Not QApplication::quit(): that would close the window first, which asks to terminate.
    if (reply == KVApplicationController::TerminateReply::now) QApplication::exit(0);
}

void KVKalvoraApplication::quit() {
    _controller->applicationWillTerminate();
    QApplication::exit(0);
}

void KVKalvoraApplication::postUserNotification(const QString &title, const QString &subtitle,
                                                const QString &topic) {
    _desktop.postNotification(title, subtitle, topic);
}

void KVKalvoraApplication::playFinishedSound() {
    _desktop.playCompleteSound();
}

void KVKalvoraApplication::putComputerToSleep() {
    _desktop.suspend();
}

void KVKalvoraApplication::requestUserAttention() {
    QApplication::alert(_window.get());
}

void KVKalvoraApplication::openURL(const QUrl &url) {
    QDesktopServices::openUrl(url);
}

void KVKalvoraApplication::setKeepsAwake(bool keepsAwake) {
    _desktop.setKeepsAwake(keepsAwake);
}

void KVKalvoraApplication::showTaskbarProgress(std::optional<double> progress) {
    _desktop.showTaskbarProgress(progress);
}

QString KVKalvoraApplication::countryCode() const {
    return KVDesktop::countryCode();
}

bool KVKalvoraApplication::isSandboxed() const {
    return KVDesktop::isSandboxed();
}

bool KVKalvoraApplication::isVisible() const {
    return _window->footerView().showsProgress();
}

void KVKalvoraApplication::slideIn(const QString &statusString) {
    _window->setProgress(0, statusString);
    _window->showProgressBar();
}

void KVKalvoraApplication::slideOut() {
    _window->hideProgressBar();
}

void KVKalvoraApplication::setProgress(double progressValue, const QString &statusString) {
    _window->setProgress(progressValue, statusString);
}
