// Measures the window from inside, on the platform that Qt chooses, and prints shell assignments. A gap is
// the longest time in milliseconds for which the main thread looked at no event; it looks every 20.
//   kvwindowmeasure intake FOLDER COUNT   seconds from the drop of FOLDER to the last of its COUNT rows:
//                                         intake=1.234 gap=20
//   kvwindowmeasure rows COUNT            milliseconds on the main thread, with all that follows but the
//                                         painting, and MiB resident: add=0.1 move=0.1 progress=0.1
//                                         resident=120
//   kvwindowmeasure conversions FILE...   all at once with the queue's preset; processor seconds of the
//                                         program and of its children: own=0.1 children=12.3 gap=20
#include "kvcore/KVMainThread.h"
#include "main_ui/KVKalvoraApplication.h"
#include "main_ui/main_window/table_view/KVQueueTableModel.h"
#include "queues/KVConversionQueue.h"
#include "video_info/media_file/KVAudioFile.h"

#include <QApplication>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QMimeData>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <numeric>
#include <string>

#include <sys/resource.h>

namespace {

constexpr double longestWait = 600;
constexpr int runs = 201;
constexpr int firstFiles = 4;
constexpr double secondsForThumbnails = 5;

/// The longest time for which the main thread looked at no event.
class LongestGap {
  public:
    LongestGap() {
        QObject::connect(&_timer, &QTimer::timeout, [this] { _look(); });
        _timer.setTimerType(Qt::PreciseTimer);
        _timer.start(interval);
        _sinceLook.start();
    }

    qint64 milliseconds() {
        _look();
        return _longest;
    }

  private:
    static constexpr int interval = 20; // each look costs processor time that is measured as well

    void _look() { _longest = std::max(_longest, _sinceLook.restart()); }

    QTimer _timer;
    QElapsedTimer _sinceLook;
    qint64 _longest = 0;
};

void drop(KVKalvoraApplication &application, const QList<QUrl> &urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&application.window(), &enter);
    QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&application.window(), &event);
}

int measureIntake(KVKalvoraApplication &application, const QUrl &folder, int count) {
    QElapsedTimer timer;
    timer.start();
    drop(application, {folder});
    // The first files are looked at on the main thread, on purpose.
    const auto hasFirst = [&] { return application.window().tableModel().rowCount() > firstFiles; };
    KVMainThread::runUntil(hasFirst, longestWait);
    LongestGap gap;
    const auto hasAll = [&] { return application.window().tableModel().rowCount() == count + 1; };
    if (!KVMainThread::runUntil(hasAll, longestWait)) return 1;
    std::printf("intake=%.3f gap=%lld\n", double(timer.elapsed()) / 1000, gap.milliseconds());
    return 0;
}

double threadMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

/// The median of many runs.
double cost(const std::function<void(int)> &work) {
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        const double begin = threadMilliseconds();
        work(run);
        times.push_back(threadMilliseconds() - begin);
        QCoreApplication::processEvents();
    }
    std::ranges::nth_element(times, times.begin() + runs / 2);
    return times[runs / 2];
}

long residentMebibytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmRSS:")) return std::stol(line.substr(6)) / 1024;
    return 0;
}

/// With a picture that does not compress to nothing.
std::shared_ptr<KVAudioFile> fileNumber(int number) {
    QImage picture(128, 96, QImage::Format_RGB888);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixelColor(x, y,
                                  QColor((x * x + y * number) % 256, (x * y + number) % 256, (x ^ y) % 256));
    const auto file =
        std::make_shared<KVAudioFile>(QUrl::fromLocalFile(QStringLiteral("/music/%1.wav").arg(number)));
    file->thumbnail = KVMediaFile::compressedThumbnail(picture);
    return file;
}

int measureRows(KVKalvoraApplication &application, int count) {
    const auto queue = KVConversionQueue::queue(KVMediaFileType::audio);
    std::vector<std::shared_ptr<KVAudioFile>> files;
    for (int number = 0; number < count + runs; ++number)
        files.push_back(fileNumber(number));
    const auto add = [&](int number) { queue->createConversion(files[std::size_t(number)], nullptr, true); };
    for (int number = 0; number < count; ++number)
        add(number);
    QCoreApplication::processEvents();

    const double adding = cost([&](int run) { add(count + run); });
    KVQueueTableModel &model = application.window().tableModel();
    const double moving = cost([&](int run) {
        model.draggedRow = 1 + run;
        model.controller().acceptDrop(count - run, KVDropOperation::above);
    });
    const auto running = queue->conversions().at(count / 2);
    running->state = KVConversionState::executing;
    const double progress = cost([&](int run) {
        running->progressOfCurrentTask = double(run) / 1000;
        for (const auto &delegate : running->delegates().allValues())
            delegate->conversionDidReachProgress(running, running->overallValue());
    });
    std::printf("add=%.3f move=%.3f progress=%.3f resident=%ld\n", adding, moving, progress,
                residentMebibytes());
    return 0;
}

double processorSeconds(int who) {
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](const timeval &time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

int measureConversions(KVKalvoraApplication &application, const QList<QUrl> &urls) {
    application.addFiles(urls);
    const auto queue = KVConversionQueue::queue(KVMediaFileType::audio);
    const auto conversions = queue->conversions();
    if (conversions.size() != urls.size()) return 1;
    KVMainThread::runUntil([] { return false; }, secondsForThumbnails);

    const double ownBefore = processorSeconds(RUSAGE_SELF);
    const double childrenBefore = processorSeconds(RUSAGE_CHILDREN);
    LongestGap gap;
    for (const auto &conversion : conversions)
        queue->startConversion(conversion); // outside of the workers: all run at the same time
    const auto haveEnded = [&] { return std::ranges::all_of(conversions, &KVConversion::isFinished); };
    if (!KVMainThread::runUntil(haveEnded, longestWait)) return 1;
    std::printf("own=%.3f children=%.3f gap=%lld\n", processorSeconds(RUSAGE_SELF) - ownBefore,
                processorSeconds(RUSAGE_CHILDREN) - childrenBefore, gap.milliseconds());
    const bool isAllWell = std::ranges::all_of(
        conversions, [](const auto &conversion) -> bool { return conversion->conversionWasSuccessful; });
    return isAllWell ? 0 : 1;
}

int measure(KVKalvoraApplication &application, const QStringList &words) {
    const QString what = words.value(1);
    if (what == "intake")
        return measureIntake(application, QUrl::fromLocalFile(words.value(2)), words.value(3).toInt());
    if (what == "rows") return measureRows(application, words.value(2).toInt());
    if (what != "conversions") return 2;
    QList<QUrl> urls;
    for (const QString &path : words.sliced(2))
        urls.append(QUrl::fromLocalFile(path));
    return measureConversions(application, urls);
}

} // namespace

int main(int argc, char **argv) {
    QApplication qtApplication(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kalvora"));
    KVPreferences::shared().setBoolean(true, KVPreferences::Key{"KVDidSeeReleaseNotes1202"});
    const auto application = KVKalvoraApplication::create();
    application->launch({});
    KVMainThread::runUntil([] { return false; }, 1); // until all of the start has been done
    return measure(*application, QApplication::arguments());
}
