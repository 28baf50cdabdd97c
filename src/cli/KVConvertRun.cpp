#include "cli/KVConvertRun.h"

#include "cli/KVJSONValue.h"
#include "cli/KVPresetChoice.h"
#include "cli/KVRequestIntake.h"
#include "core/KVFailureCause.h"
#include "kvcore/KVMainThread.h"
#include "kvcore/KVTime.h"
#include "platform/KVFileManager.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QJsonObject>

#include <algorithm>
#include <limits>

#include <unistd.h>

namespace {

/// Quitting takes two seconds; this leaves some for what comes after the workers.
constexpr double secondsForCancelling = 1.6;

QString namesOf(const KVConversion &conversion) {
    QStringList names;
    for (const auto &file : conversion.mediaFiles())
        names.append(file->url().toLocalFile());
    return names.join(QLatin1String(" + "));
}

/// The failure of a disc without a place for its image, since no folder was chosen.
KVConversionError errorWithoutDestination(const KVConversion &conversion) {
    return {conversion.mediaFiles(),
            conversion.presetInForce(),
            {},
            QStringLiteral("Couldn't create task, aborting."),
            -1};
}

} // namespace

KVConvertRun::KVConvertRun(KVConsole &console, const KVConversionRequest &request, bool isStitching)
    : _console(console)
    , _request(request)
    , _isStitching(isStitching)
    , _display(std::make_shared<KVProgressDisplay>(console)) {}

void KVConvertRun::run() {
    KVConversionQueue::addDelegateToAllQueues(shared_from_this());
    for (const KVMediaFileType type : KVMediaFileTypes::allTypes)
        if (KVPresetChoice::canConvert(*_request.preset, type))
            KVConversionQueue::queue(type)->setSelectedPreset(_request.preset);

    const auto observer = std::make_shared<KVRequestIntake>(
        _request,
        [this](const Conversion &conversion) {
            _didQueue(conversion);
            _saySubtitles(*conversion);
        },
        [this](const KVIntakeRefusal &refusal) { _didRefuse(refusal); });
    _intake.setObserver(observer);
    for (const QString &name : _request.unreadableInputs)
        _didRefuse({KVIntakeRefusal::Kind::unreadable, name, QStringLiteral("The name is not UTF-8.")});
    _hasFolders = std::ranges::any_of(_request.inputs, &KVFileManager::isDirectory);
    // What is stitched keeps its order: the members of a large folder come in behind the inputs that follow.
    if (_isStitching)
        _inputsToCome = _request.inputs;
    else
        _intake.addFilesInBackground(_request.inputs);
    KVMainThread::runUntil(
        [this] {
            _advance();
            _updateCounts(); // the end of the loading comes without a word
            return _isDone();
        },
        std::numeric_limits<double>::infinity());
    _display->end();
}

void KVConvertRun::cancel() {
    _isCancelled = true;
    _intake.cancelLoading();
    _haveWorkersEnded = KVConversionQueue::cancelAllAndWait(secondsForCancelling);
    _runningQueues.clear();
}

void KVConvertRun::removePartialOutputs() {
    const std::scoped_lock lock(_mutex);
    for (const auto &conversion : _runningConversions)
        conversion->removePartialOutput();
}

bool KVConvertRun::isEverythingDone() const {
    return !_rows.empty() && _refusals.empty() && std::ranges::all_of(_rows, &Row::isSuccessful);
}

bool KVConvertRun::hasWarnings() const {
    return std::ranges::any_of(
        _rows, [](const Row &row) { return row.isSuccessful && !row.conversion->warnings().isEmpty(); });
}

void KVConvertRun::_didQueue(const Conversion &conversion) {
    _rowNumbers.emplace(conversion.get(), _rows.size());
    _rows.emplace_back().conversion = conversion;
    _hasNews = true;
    _updateCounts();
}

/// Subtitles that the user did not name are worth a line, above all if their encoding was guessed.
void KVConvertRun::_saySubtitles(const KVConversion &conversion) const {
    for (const auto &file : conversion.mediaFiles()) {
        const auto video = std::dynamic_pointer_cast<const KVVideoFile>(file);
        if (video && video->subtitlesFileURL && video->subtitlesFileURL != _request.subtitles)
            _console.say(
                QStringLiteral("note: %1: %2").arg(video->url().toLocalFile(), video->subtitlesText()));
    }
}

void KVConvertRun::_didRefuse(const KVIntakeRefusal &refusal) {
    const bool isFailure = KVRequestIntake::isFailure(refusal);
    const QString said = QStringLiteral("%1: %2").arg(refusal.path, refusal.reason);
    _console.say(isFailure ? "kalvoractl: " + said : "passed over " + said);
    if (isFailure) _refusals.push_back(refusal);
}

/// Starts what can be started. A queue that has run dry is started again when it gets something to do.
void KVConvertRun::_advance() {
    if (!_isCancelled && !_inputsToCome.isEmpty() && !_intake.isLoading())
        _intake.addFilesInBackground({_inputsToCome.takeFirst()});
    if (!_mayStart()) return;
    if (_isStitching && !std::exchange(_isStitched, true)) _stitch();
    if (!std::exchange(_hasNews, false)) return;
    for (const auto &queue : KVConversionQueue::allQueues()) {
        if (_runningQueues.contains(queue) || queue->numberOfFilesWaitingToBeConverted() == 0) continue;
        _runningQueues.insert(queue);
        queue->start();
    }
}

bool KVConvertRun::_mayStart() const {
    if (_isCancelled) return false;
    if (_isStitching) return !_intake.isLoading();
    // A folder that is read later would show what this run has written meanwhile.
    return !_hasFolders || !_intake.isEntering();
}

void KVConvertRun::_stitch() {
    _intake.mergeAll();
    _rows.clear();
    _rowNumbers.clear();
    for (const auto &queue : KVConversionQueue::allQueues())
        for (const auto &conversion : queue->conversions())
            _didQueue(conversion);
    _hasNews = true;
}

bool KVConvertRun::_isDone() const {
    if (_isCancelled) return !_intake.isLoading();
    return !_intake.isLoading() && _runningQueues.empty() && !_hasNews;
}

KVConvertRun::Row *KVConvertRun::_rowOf(const Conversion &conversion) {
    const auto number = _rowNumbers.find(conversion.get());
    return number != _rowNumbers.end() ? &_rows[number->second] : nullptr;
}

void KVConvertRun::conversionQueueConversionDidUpdateStatus(const Queue &, const Conversion &) {
    _display->update();
}

void KVConvertRun::conversionQueueWillStartConversion(const Queue &, const Conversion &conversion) {
    Row *row = _rowOf(conversion);
    if (!row) return;
    row->start = Clock::now();
    {
        const std::scoped_lock lock(_mutex);
        _runningConversions.insert(conversion);
    }
    _display->add(conversion);
    if (!_console.canPaint()) _console.say(namesOf(*conversion) + ": started");
}

void KVConvertRun::conversionQueueDidFailConversion(const Queue &, const Conversion &conversion) {
    _didEnd(conversion, false);
}

void KVConvertRun::conversionQueueDidSuccessfullyFinishConversion(const Queue &,
                                                                  const Conversion &conversion) {
    _didEnd(conversion, true);
}

void KVConvertRun::conversionQueueDidFinishAllConversions(const Queue &queue) {
    _runningQueues.erase(queue);
    _hasNews = true;
}

void KVConvertRun::_didEnd(const Conversion &conversion, bool isSuccessful) {
    Row *row = _rowOf(conversion);
    if (!row) return;
    {
        const std::scoped_lock lock(_mutex);
        _runningConversions.erase(conversion);
    }
    _display->remove(conversion);
    if (row->start) row->seconds = std::chrono::duration<double>(Clock::now() - *row->start).count();
    row->isSuccessful = isSuccessful;
    if (!isSuccessful && !_isCancelled && !conversion->isCancelled())
        row->failure = conversion->failure().value_or(errorWithoutDestination(*conversion));
    ++_numberOfEnded;
    _updateCounts();
    _sayEnd(*row);
}

void KVConvertRun::_sayEnd(const Row &row) const {
    const QString names = namesOf(*row.conversion);
    if (!row.isSuccessful) return _sayFailure(row);
    const auto output = row.conversion->outputURL();
    _console.say(QStringLiteral("%1: done, %2 (%3 s)")
                     .arg(names, output ? output->toLocalFile() : QString())
                     .arg(row.seconds.value_or(0), 0, 'f', 1));
    for (const QString &warning : row.conversion->warnings())
        _console.say(QStringLiteral("%1: warning: %2").arg(names, warning));
}

/// The cause, followed by the line of the output if that differs, and the remedy on a line of its own.
void KVConvertRun::_sayFailure(const Row &row) const {
    const QString error = _errorText(row);
    QString text = error;
    QString remedy;
    if (row.failure) {
        const auto cause = KVFailureCause::of(*row.failure);
        const bool isLineOfOutput =
            row.failure->taskOutput.contains(error) || row.failure->reason.contains(error);
        const bool isNews = isLineOfOutput && !cause.text.contains(error);
        text = isNews ? QStringLiteral("%1 (%2)").arg(cause.text, error) : cause.text;
        remedy = cause.remedy;
    }
    _console.say(QStringLiteral("kalvoractl: %1: %2").arg(namesOf(*row.conversion), text));
    if (!remedy.isEmpty()) _console.say("  " + remedy);
}

QString KVConvertRun::_errorText(const Row &row) const {
    if (row.failure) return KVFailureCause::errorText(*row.failure);
    return _isCancelled || row.conversion->isCancelled() ? QStringLiteral("Cancelled.")
                                                         : QStringLiteral("The conversion failed.");
}

void KVConvertRun::_updateCounts() {
    _display->setCounts(_numberOfEnded, static_cast<qsizetype>(_rows.size()), _intake.isLoading());
}

QJsonArray KVConvertRun::report() const {
    std::vector<const Row *> rows;
    for (const Row &row : _rows)
        rows.push_back(&row);
    std::ranges::stable_sort(
        rows, {}, [](const Row *row) { return row->conversion->mediaFiles().first()->mediaFileType(); });
    QJsonArray report;
    for (const Row *row : rows)
        report.append(_object(*row));
    for (const KVIntakeRefusal &refusal : _refusals)
        report.append(QJsonObject{{"input", QJsonArray{refusal.path}},
                                  {"output", QJsonValue()},
                                  {"preset", _request.preset->name},
                                  {"successful", false},
                                  {"terminationStatus", QJsonValue()},
                                  {"seconds", QJsonValue()},
                                  {"error", refusal.reason},
                                  {"cause", refusal.reason},
                                  {"remedy", QJsonValue()},
                                  {"warnings", QJsonArray()}});
    return report;
}

QJsonObject KVConvertRun::_object(const Row &row) const {
    QJsonArray inputs;
    for (const auto &file : row.conversion->mediaFiles())
        inputs.append(file->url().toLocalFile());
    const auto output = row.isSuccessful ? row.conversion->outputURL() : std::nullopt;
    QJsonValue status;
    if (row.isSuccessful) status = 0;
    QJsonValue cause, remedy;
    if (row.failure) {
        status = row.failure->terminationStatus;
        const auto found = KVFailureCause::of(*row.failure);
        cause = found.text;
        if (!found.remedy.isEmpty()) remedy = found.remedy;
    }
    const auto warnings = row.isSuccessful ? row.conversion->warnings() : QStringList();
    return {{"input", inputs},
            {"output", output ? QJsonValue(output->toLocalFile()) : QJsonValue()},
            {"preset", row.conversion->presetInForce()->name},
            {"successful", row.isSuccessful},
            {"terminationStatus", status},
            {"seconds", KVJSONValueOrNull(row.seconds)},
            {"error", row.isSuccessful ? QJsonValue() : QJsonValue(_errorText(row))},
            {"cause", cause},
            {"remedy", remedy},
            {"warnings", QJsonArray::fromStringList(warnings)}};
}
