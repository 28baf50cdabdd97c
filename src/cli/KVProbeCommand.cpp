#include "cli/KVProbeCommand.h"

#include "cli/KVInputPath.h"
#include "cli/KVMediaFileJSON.h"
#include "cli/KVOwnFiles.h"
#include "controllers/KVFileIntake.h"
#include "kvcore/KVMainThread.h"
#include "platform/KVFileManager.h"
#include "util/KVThreadCount.h"
#include "video_info/media_file/KVPictureFile.h"

#include <QJsonArray>

#include <algorithm>
#include <atomic>
#include <limits>
#include <mutex>
#include <thread>
#include <vector>

namespace {

using Result = KVResult<std::shared_ptr<KVMediaFile>>;

tl::unexpected<KVError> refusal(const QString &reason) {
    return tl::unexpected(KVError{KVMediaFileErrorDomain, 0, reason, {}});
}

/// A folder is asked for only as a DVD; any other one is no file.
Result probe(const KVCommandArgument &argument, const QUrl &url) {
    if (!argument.isReadable) return refusal(QStringLiteral("The name is not UTF-8."));
    if (KVFileManager::isDirectory(url)) {
        const auto videoFolder = KVFileManager::appendingPathComponent(url, QStringLiteral("VIDEO_TS"));
        if (KVFileManager::lastPathComponent(url) == QLatin1String("VIDEO_TS"))
            return KVMediaFile::mediaFile(url);
        if (KVFileManager::isDirectory(videoFolder)) return KVMediaFile::mediaFile(videoFolder);
        return refusal(QStringLiteral("This is a folder."));
    }
    Result file = KVFileIntake::readFile(url);
    const auto *picture = file ? dynamic_cast<const KVPictureFile *>(file->get()) : nullptr;
    if (picture && picture->readingError) return refusal(picture->readingError->reason);
    return file;
}

/// Looks at all files, several at a time, and hands the results over in the order of the files, on the main
/// thread.
class Prober {
  public:
    using Handler = std::function<bool(qsizetype index, const Result &result)>;

    /// `handle` answers whether to go on.
    Prober(const QList<KVCommandArgument> &arguments, Handler handle)
        : _arguments(arguments)
        , _handle(std::move(handle))
        , _results(static_cast<size_t>(arguments.size())) {
        for (const KVCommandArgument &argument : arguments)
            _urls.append(argument.isReadable ? KVInputPath::url(argument.text) : QUrl());
    }

    void run() {
        std::vector<std::jthread> workers;
        const qsizetype count = std::min<qsizetype>(KVProcessInfo::activeProcessorCount(), _urls.size());
        for (qsizetype i = 0; i < count; ++i)
            workers.emplace_back([this] { _work(); });
        KVMainThread::runUntil([this] { return _isDone(); }, std::numeric_limits<double>::infinity());
        _next = _urls.size();
        // A worker that still looks at a file may have a question for this thread.
        KVMainThread::runUntil([&] { return _numberOfWorkersAtEnd == count; },
                               std::numeric_limits<double>::infinity());
    }

  private:
    bool _isDone() const { return _isStopped || _numberOfHandled == _urls.size(); }

    void _work() {
        for (qsizetype index = _next++; index < _urls.size(); index = _next++) {
            Result result = probe(_arguments[index], _urls[index]);
            const std::scoped_lock lock(_mutex);
            _results[static_cast<size_t>(index)] = std::move(result);
            KVMainThread::async([this] { _handleReady(); });
        }
        ++_numberOfWorkersAtEnd;
        KVMainThread::async([] {});
    }

    void _handleReady() {
        while (!_isDone()) {
            std::optional<Result> result;
            {
                const std::scoped_lock lock(_mutex);
                result = std::exchange(_results[static_cast<size_t>(_numberOfHandled)], std::nullopt);
            }
            if (!result) return;
            _isStopped = !_handle(_numberOfHandled++, *result);
        }
    }

    const QList<KVCommandArgument> &_arguments;
    const Handler _handle;
    QList<QUrl> _urls;
    std::mutex _mutex;
    std::vector<std::optional<Result>> _results;
    std::atomic<qsizetype> _next = 0;
    std::atomic<qsizetype> _numberOfWorkersAtEnd = 0;
    qsizetype _numberOfHandled = 0;
    bool _isStopped = false;
};

} // namespace

QString KVProbeCommand::details() const {
    return "A DVD is given by its VIDEO_TS folder or by the folder around it. A file that cannot be "
           "converted\n"
           "is told on standard error (with --json, as an \"error\" in its place) and makes the exit status "
           "1.";
}

KVExitStatus KVProbeCommand::run(const KVParsedWords &words) {
    if (words.arguments().isEmpty()) return usageError(QStringLiteral("a FILE is missing"));
    plugInQuestions(words);
    const KVOwnFiles ownFiles(_console);

    const bool isJSON = words.isSet("json");
    bool isAnyRefused = false;
    QJsonArray files;
    Prober prober(words.arguments(), [&](qsizetype index, const Result &result) {
        const KVCommandArgument &argument = words.arguments()[index];
        const QString path = argument.isReadable ? KVInputPath::absolute(argument.text) : argument.text;
        if (!result) {
            isAnyRefused = true;
            const KVError &error = result.error();
            sayFailure(QStringLiteral("%1: %2").arg(
                path, argument.isReadable
                          ? KVFileIntake::reasonForUnreadableFile(QUrl::fromLocalFile(path), error)
                          : error.reason));
            files.append(KVMediaFileJSON::ofRefusal(path, error));
        } else if (isJSON) {
            files.append(KVMediaFileJSON::ofFile(**result));
        } else {
            _console.writeResult((*result)->description());
            return _console.flushResults();
        }
        return true;
    });
    prober.run();
    if (isJSON) writeJSON(files);
    return isAnyRefused ? KVExitStatus::failure : KVExitStatus::success;
}
