#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVMainThread.h"
#include "main_ui/KVAppearance.h"
#include "main_ui/KVKalvoraApplication.h"
#include "main_ui/main_window/details/KVFailureDetailsPanel.h"
#include "main_ui/main_window/refusals/KVRefusalsDialog.h"
#include "main_ui/main_window/subtitles/KVSubtitleEncodingChooser.h"
#include "main_ui/main_window/table_view/KVConversionRowDelegate.h"
#include "main_ui/main_window/table_view/KVQueueTableWidget.h"
#include "main_ui/questions/KVWindowQuestions.h"
#include "platform/KVScriptedQuestions.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QHelpEvent>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QToolTip>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

/// Brings the window into each state and takes a picture of it.
class Photographer {
  public:
    Photographer(QDir media, QDir output)
        : _media(std::move(media))
        , _output(std::move(output)) {}

    void run() {
        KVPreferences::shared().setBoolean(true, KVPreferences::Key{"KVDidSeeReleaseNotes1202"});
        _application->launch({});
        KVUserQuestion::setResponder(_questions);
        _window().move(40, 40);
        _settle();
        _take("empty");
        _loading();
        _waiting();
        _running();
        _finished();
        _details();
        _subtitles();
        _refusals();
        _trackQuestion();
    }

  private:
    void _loading() {
        _application->addFiles({_url("Folder")});
        _wait([&] { return _model().rowCount() > 7; });
        _take("loading");
        _application->controller().waitUntilLoaded(60);
        _application->clearInactiveConversionsInQueue(-1);
        _wait([&] { return _window().showsDropZone(); });
    }

    void _waiting() {
        for (const char *name : {"Harbour at dawn.mov", "Through the fjords.mkv", "Birthday.mp4",
                                 "01 Prelude.mp3", "Interview.wav", "Mountain lake.png", "Poster.png"})
            _application->addFiles({_url(name)});
        _wait([&] { return _haveThumbnails(); });
        _settle(1);
        _takeMenu("Through the fjords.mkv", "row-menu");
        _undoBar();
    }

    void _undoBar() {
        auto &table = _window().tableWidget();
        table.setCurrentIndex(_row("Poster.png"));
        table.rowsForCommand().remove();
        table.setCurrentIndex(_row("Birthday.mp4"));
        table.selectionModel()->select(_row("01 Prelude.mp3"), QItemSelectionModel::Select);
        _take("undo-bar");
        _window().undo();
        table.clearSelection();
    }

    /// With a command that is disabled also why.
    void _takeMenu(const QString &title, const QString &name, const char *disabledCommand = nullptr) {
        const QPoint thumbnail =
            KVConversionRowDelegate::thumbnailRect(_window().tableWidget().visualRect(_row(title))).center();
        QWidget *viewport = _window().tableWidget().viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, thumbnail, viewport->mapToGlobal(thumbnail));
        QCoreApplication::sendEvent(viewport, &event);
        _settle();
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu && disabledCommand) _showToolTip(*menu, KVLocalizationCenter::localized(disabledCommand));
        _take(name);
        QToolTip::hideText();
        if (menu) menu->close();
        _window().tableWidget().clearSelection();
        _window().tableWidget().setCurrentIndex({});
    }

    static void _showToolTip(QMenu &menu, const QString &command) {
        for (QAction *action : menu.actions()) {
            if (action->text() != command) continue;
            const QPoint point = menu.actionGeometry(action).center();
            menu.setActiveAction(action);
            QHelpEvent event(QEvent::ToolTip, point, menu.mapToGlobal(point));
            QCoreApplication::sendEvent(&menu, &event);
        }
    }

    void _running() {
        _application->start();
        const QModelIndex row = _row("Harbour at dawn.mov");
        _wait([&] {
            return row.data(KVQueueTableModel::progressRole).toDouble() > 0.35 ||
                   row.data(KVQueueTableModel::stateRole).toInt() == int(KVConversionState::finished);
        });
        _take("running");
        _takeMenu("Harbour at dawn.mov", "running-menu", "Preset");
        KVAppearance::setIsDark(true);
        _settle(0.2);
        _take("dark");
        KVAppearance::setIsDark(false);
        for (const auto &queue : KVConversionQueue::allQueues())
            for (const auto &conversion : queue->conversions())
                if (!conversion->isFinished()) queue->cancelConversion(conversion);
        _wait([&] { return !KVConversionQueue::isAnyQueueWorking(); });
        _application->clearFinishedConversionsInQueue(-1);
        _wait([&] { return _window().showsDropZone(); });
    }

    void _finished() {
        _window().toggleHistory();
        _window().resize(900, 520); // the causes are to be read
        QFile::copy(_media.filePath("Harbour at dawn.mov"), _media.filePath("Lost.mov"));
        for (const char *name :
             {"Birthday.mp4", "Lost.mov", "Concert.wav", "01 Prelude.mp3", "Mountain lake.png"})
            _application->addFiles({_url(name)});
        _wait([&] { return _haveThumbnails(); });
        QFile::remove(_media.filePath("Lost.mov"));
        _application->start();
        _wait([&] { return _areAllFinished(); });
        _settle(1);
        _take("finished");
        _window().toggleHistory();
        _window().resize(760, 640); // the panel fits into it
        _settle();
    }

    void _details() {
        _model().tableRow(_row("Lost.mov"))->showDetails();
        for (const bool isDark : {false, true}) {
            KVAppearance::setIsDark(isDark);
            _settle();
            _take(isDark ? "details-dark" : "details");
        }
        _window().findChild<KVFailureDetailsPanel *>()->close();
        _settle();
        _window().resize(760, 520);
        _take("finished-dark");
        KVAppearance::setIsDark(false);
    }

    void _subtitles() {
        KVSubtitleEncodingChooser chooser(_url("Through the fjords.srt.txt"), "UTF-8", &_window());
        chooser.show();
        _settle();
        _take("subtitles");
    }

    void _refusals() {
        _application->clearInactiveConversionsInQueue(-1);
        _application->addFiles(
            {_url("Voyage.mkv"), _url("Mixed"), _url("Mountain lake.png"), _url("Mountain lake.png")});
        _application->controller().waitUntilLoaded(60);
        _settle();
        _take("refusals-count");
        for (auto *button : _window().findChildren<QPushButton *>())
            if (button->isVisible() && button->text() == KVLocalizationCenter::localized("Show..."))
                button->click();
        _settle();
        auto *list = _window().findChild<KVRefusalsDialog *>();
        list->move(_window().pos() + QPoint(10, 30));
        _take("refusals");
        list->close();
    }

    void _trackQuestion() {
        QTimer timer; // for the second question as well, which is closed at once
        bool isTaken = false;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            QWidget *question = QApplication::activeModalWidget();
            if (!question) return;
            timer.stop(); // taking the picture runs the event loop
            question->move(_window().pos() + QPoint(60, 80));
            if (!std::exchange(isTaken, true)) _take("track-question");
            question->close();
            timer.start();
        });
        timer.start(500);
        KVUserQuestion::setResponder(std::make_shared<KVWindowQuestions>(&_window()));
        _application->addFiles({_url("Two languages.mkv"), _url("Two more.mkv")});
        KVUserQuestion::setResponder(_questions);
    }

    /// Sound files alone may have no picture.
    bool _haveThumbnails() {
        for (const auto &queue : KVConversionQueue::allQueues())
            for (const auto &conversion : queue->conversions())
                if (queue->mediaFileType() != KVMediaFileType::audio &&
                    conversion->mediaFiles().first()->thumbnail.isEmpty())
                    return false;
        return true;
    }

    static bool _areAllFinished() {
        for (const auto &queue : KVConversionQueue::allQueues())
            for (const auto &conversion : queue->conversions())
                if (!conversion->isFinished()) return false;
        return !KVConversionQueue::isAnyQueueWorking();
    }

    KVMainWindow &_window() { return _application->window(); }
    KVQueueTableModel &_model() { return _window().tableModel(); }
    QUrl _url(const QString &name) const { return QUrl::fromLocalFile(_media.filePath(name)); }

    QModelIndex _row(const QString &title) {
        for (int row = 0; row < _model().rowCount(); ++row)
            if (_model().index(row).data().toString() == title) return _model().index(row);
        return {};
    }

    static void _settle(double seconds = 0.5) {
        KVMainThread::runUntil([] { return false; }, seconds);
    }

    static void _wait(const std::function<bool()> &isDone) {
        if (KVMainThread::runUntil(isDone, 120)) return;
        std::fputs("The window does not come into the state that was to be shown.\n", stderr);
        std::exit(1);
    }

    void _take(const QString &name) {
        _settle(0.2);
        QRect place = _window().geometry();
        for (const QWidget *panel : QApplication::topLevelWidgets())
            if (panel->isVisible() && panel->isWindow()) place |= panel->geometry();
        const QImage picture = _window().screen()->grabWindow(0).toImage().copy(place);
        picture.save(_output.filePath(name + ".png"));
    }

    QDir _media;
    QDir _output;
    std::shared_ptr<KVScriptedQuestions> _questions = std::make_shared<KVScriptedQuestions>();
    std::shared_ptr<KVKalvoraApplication> _application = KVKalvoraApplication::create();
};

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kalvora"));
    if (argc != 3) return 2;
    KVLocalizationCenter::loadSystemLanguage();
    if (const double scale = qEnvironmentVariable("KALVORA_FONT").toDouble(); scale > 0) {
        QFont font = QApplication::font();
        font.setPointSizeF(font.pointSizeF() * scale);
        QApplication::setFont(font);
    }
    Photographer(QDir(argv[1]), QDir(argv[2])).run();
    return 0;
}
