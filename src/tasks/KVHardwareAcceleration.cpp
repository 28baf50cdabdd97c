#include "tasks/KVHardwareAcceleration.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLog.h"
#include "platform/KVFileManager.h"
#include "platform/KVResources.h"
#include "tasks/KVFFmpegTask.h"

#include <QCoreApplication>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace {

QStringList testArguments(const QString &input, const QString &output) {
    return {"-y",
            "-i",
            input,
            "-enable_drefs",
            "1",
            "-s",
            "40x40",
            "-aspect",
            "1:1",
            "-threads",
            "16",
            "-c:v",
            "h264_videotoolbox",
            "-b:v",
            "6900k",
            "-maxrate",
            "8M",
            "-allow_sw",
            "1",
            "-copyts",
            "-movflags",
            "+faststart",
            "-qmin",
            "5",
            "-qmax",
            "31",
            "-flags",
            "+loop",
            "-g",
            "250",
            "-i_qfactor",
            "0.71",
            "-refs",
            "1",
            "-trellis",
            "2",
            "-coder",
            "0",
            "-bf",
            "0",
            "-bt",
            "256k",
            "-keyint_min",
            "250",
            "-sc_threshold",
            "40",
            "-me_method",
            "umh",
            "-me_range",
            "51",
            "-level",
            "51",
            "-profile:v",
            "baseline",
            "-an",
            "-sn",
            "-f",
            "mp4",
            "-max_muxing_queue_size",
            "40000",
            "-map_chapters",
            "0",
            "-map_metadata",
            "0",
            output};
}

std::shared_ptr<KVFFmpegTask> makeTask(const QUrl &output) {
    const auto input = KVResources::path("hw_test", "mov");
    if (!input) KVFatalError("The resource hw_test.mov is missing.");
    const auto task = KVFFmpegTask::create(testArguments(*input, output.toLocalFile()));
    if (!task) KVFatalError("The hardware test cannot be made: " + task.error().reason);
    return *task;
}

/// The verdict, whoever gave it. Never destroyed: it is read until the process ends.
struct Verdict {
    std::mutex mutex;
    std::condition_variable isThere;
    std::optional<bool> isAvailable;
};

Verdict &verdict() {
    static auto &verdict = *new Verdict;
    return verdict;
}

/// The test's: what was put in its place stays.
void giveVerdict(bool isAvailable) {
    {
        const std::scoped_lock lock(verdict().mutex);
        if (!verdict().isAvailable) verdict().isAvailable = isAvailable;
    }
    verdict().isThere.notify_all();
}

bool hasVerdict() {
    const std::scoped_lock lock(verdict().mutex);
    return verdict().isAvailable.has_value();
}

} // namespace

/// One run of the test on a thread of its own.
struct KVHardwareAcceleration::Private {
    std::mutex mutex;
    std::shared_ptr<KVFFmpegTask> task; ///< While it runs.
    bool isStopping = false;
    std::thread thread;

    void run() {
        const QUrl output = KVFileManager::appendingPathComponent(KVFileManager::temporaryDirectory(),
                                                                  KVFileManager::uniqueName() + ".mp4");
        const auto test = makeTask(output);
        {
            const std::scoped_lock lock(mutex);
            if (isStopping) return;
            task = test;
        }
        KVLog("Launching hardware test: " + test->arguments().join(' '));
        const QByteArray text = test->launchAndGetAllOutputData();
        const int status = test->process().terminationStatus();
        KVLog(QStringLiteral("Harware test: %1 %2").arg(status).arg(KVFFmpegTask::logText(text)));
        (void)KVFileManager::removeItem(output);
        giveVerdict(status == 0);
        const std::scoped_lock lock(mutex);
        task = nullptr;
    }

    void stop() {
        {
            const std::scoped_lock lock(mutex);
            isStopping = true;
            if (task) task->process().kill();
        }
        if (thread.joinable()) thread.join();
        giveVerdict(false); // for whoever still waits for a test that did not come to its end
    }
};

KVHardwareAcceleration &KVHardwareAcceleration::shared() {
    static KVHardwareAcceleration acceleration;
    return acceleration;
}

KVHardwareAcceleration::KVHardwareAcceleration()
    : _p(std::make_unique<Private>()) {
    if (hasVerdict()) return;
    _p->thread = std::thread([p = _p.get()] { p->run(); });
    // Ends while all that the test uses is still there; without an application the destructor has to do.
    if (QCoreApplication::instance()) qAddPostRoutine([] { shared()._p->stop(); });
}

KVHardwareAcceleration::~KVHardwareAcceleration() {
    _p->stop();
}

bool KVHardwareAcceleration::isHardwareAccelerationAvailable() const {
    const std::scoped_lock lock(verdict().mutex);
    return verdict().isAvailable.value_or(true);
}

void KVHardwareAcceleration::waitForResult() const {
    std::unique_lock lock(verdict().mutex);
    verdict().isThere.wait(lock, [] { return verdict().isAvailable.has_value(); });
}

void KVHardwareAcceleration::setResult(bool isAvailable) {
    {
        const std::scoped_lock lock(verdict().mutex);
        verdict().isAvailable = isAvailable;
    }
    verdict().isThere.notify_all();
}
