#include "support/KVVideoConversionTestCase.h"

#include "core/KVErrorCenter.h"
#include "queues/KVConversionQueue.h"
#include "support/KVTestMedia.h"
#include "support/KVTestProbe.h"
#include "tasks/KVHardwareAcceleration.h"

namespace {

QString keyOf(const KVPreset &preset, const KVMediaFileList &files) {
    return preset.description() + " of " + files.first()->url().fileName();
}

} // namespace

void KVVideoConversionTestCase::SetUp() {
    KVHardwareAcceleration::setResult(false);
    KVErrorCenter::shared().setErrorObserver([this](const KVConversionError &error) {
        const std::scoped_lock lock(_mutex);
        _failures[keyOf(*error.targetPreset, error.mediaFiles)] =
            error.taskArguments.join(' ') + "\n" + error.taskOutput.right(1500) + error.reason;
    });
}

void KVVideoConversionTestCase::TearDown() {
    EXPECT_TRUE(KVConversionQueue::cancelAllAndWait(5));
    KVConversionQueue::queue(KVMediaFileType::video)->setConversions({});
    KVErrorCenter::shared().setErrorObserver({});
}

std::map<QString, QString> KVVideoConversionTestCase::convert(const std::vector<Job> &jobs) {
    const auto queue = KVConversionQueue::queue(KVMediaFileType::video);
    queue->setOutputDirectoryURL(QUrl::fromLocalFile(path()));
    std::vector<std::shared_ptr<KVConversion>> rows;
    for (const Job &job : jobs) {
        rows.push_back(queue->createConversion(job.files.first(), job.preset, true));
        rows.back()->setMediaFiles(job.files);
        _keys[job.label] = keyOf(*job.preset, job.files);
    }
    queue->start();
    EXPECT_TRUE(runUntil(
        [&] { return !queue->isWorking() && std::ranges::all_of(rows, &KVConversion::isFinished); }, 240));
    std::map<QString, QString> outputs;
    for (std::size_t i = 0; i < jobs.size(); ++i) {
        const auto url = rows[i]->outputURL();
        outputs[jobs[i].label] = rows[i]->conversionWasSuccessful && url ? url->toLocalFile() : QString();
        _warnings[jobs[i].label] = rows[i]->warnings();
    }
    queue->setConversions({});
    return outputs;
}

QString KVVideoConversionTestCase::failureOf(const QString &label) const {
    const std::scoped_lock lock(_mutex);
    const auto key = _keys.find(label);
    const auto failure = key == _keys.end() ? _failures.end() : _failures.find(key->second);
    return failure == _failures.end() ? QString() : failure->second;
}

QStringList KVVideoConversionTestCase::warningsOf(const QString &label) const {
    const auto warnings = _warnings.find(label);
    return warnings == _warnings.end() ? QStringList() : warnings->second;
}

std::shared_ptr<KVVideoFile> KVVideoConversionTestCase::probed(const QString &path) {
    const auto file = KVMediaFile::mediaFile(QUrl::fromLocalFile(path));
    EXPECT_TRUE(file) << path.toStdString();
    const auto video = file ? std::dynamic_pointer_cast<KVVideoFile>(*file) : nullptr;
    EXPECT_TRUE(video) << path.toStdString();
    return video;
}

QString KVVideoConversionTestCase::clip(const QString &name, const QString &size,
                                        const QStringList &outputOptions) const {
    const QString target = path(name);
    KVTestMedia::make(QStringList{"-f", "lavfi", "-i", KVTestProbe::squareFilter(size, seconds), "-f",
                                  "lavfi", "-i", QString("sine=sample_rate=44100:duration=%1").arg(seconds),
                                  "-pix_fmt", "yuv420p", "-c:v", "mpeg4", "-q:v", "3", "-c:a", "aac", "-ac",
                                  "2"} +
                      outputOptions + QStringList{target});
    return target;
}
