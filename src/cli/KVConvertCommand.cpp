#include "cli/KVConvertCommand.h"

#include "cli/KVConversionRequest.h"
#include "cli/KVConvertRun.h"
#include "cli/KVLostSubtitles.h"
#include "cli/KVOwnFiles.h"
#include "core/KVHistoryCenter.h"
#include "platform/KVSignalWatcher.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVTempDirectory.h"

QString KVConvertCommand::details() const {
    return "Each file is a conversion of its own. Of a folder all members count; those that are no media by\n"
           "their extension, or not of a kind that the preset converts, are passed over. Any other file "
           "that\n"
           "is refused is told on standard error and makes the exit status 1.\n\n"
           "--json prints, at the end, an array with one object for each conversion in queue order: "
           "\"input\",\n"
           "\"output\", \"preset\", \"successful\", \"terminationStatus\", \"seconds\" (the time that it "
           "took) and\n"
           "\"error\" (a line of ffmpeg's), \"cause\" and \"remedy\" (why it failed and what helps; null "
           "if "
           "it\n"
           "did not fail) and \"warnings\" (what a successful result lacks). Behind them stands one for "
           "each\n"
           "refused file, with null for what there is not.\n\n"
           "A result with warnings is a success; with --strict it makes the exit status 1.";
}

QList<KVCommandOption> KVConvertCommand::options() const {
    return KVConversionRequest::options() +
           QList<KVCommandOption>{{"stitch", {}, "merge all files of one media type into one output"},
                                  {"recursive", {}, "descend into subfolders"},
                                  {"strict", {}, "count a result with warnings as a failure"},
                                  jsonOption};
}

KVExitStatus KVConvertCommand::run(const KVParsedWords &words) {
    const auto request = KVConversionRequest::make(words);
    if (!request) return usageError(request.error());
    const KVPreset &preset = *request->preset;
    // Only the first of the files would be converted, and the others lost without a word.
    if (words.isSet("stitch") && !preset.supportsStitching() && preset.presetType() != KVMediaFileType::dvd)
        return usageError(QStringLiteral("the preset \"%1\" cannot stitch files").arg(preset.name));
    plugInQuestions(words);
    const KVOwnFiles ownFiles(_console);
    return _convert(*request, words);
}

KVExitStatus KVConvertCommand::_convert(const KVConversionRequest &request, const KVParsedWords &words) {
    const KVLostSubtitles lostSubtitles(_console, request.subtitles);
    std::shared_ptr<KVConvertRun> run;
    const KVSignalWatcher signals([&] { run->cancel(); }, [&] { run->removePartialOutputs(); });
    run = std::make_shared<KVConvertRun>(_console, request, words.isSet("stitch"));

    if (words.isSet("recursive"))
        KVPreferences::shared().setValueForThisRun(true, KVPreferenceKeys::RecursivelyProcessAllFolders);
    KVTempDirectoryURL();
    KVCleanTempDirectory();
    const auto obstacle = request.prepareEncoder();
    const bool hasDestination = !obstacle && request.settleDestination();
    if (hasDestination)
        run->run();
    else
        sayFailure(obstacle.value_or(QStringLiteral("there is no destination folder")));
    if (hasDestination && !signals.signal() && run->hadNothingToDo())
        sayFailure(QStringLiteral("there is nothing to convert"));
    KVCleanTempDirectory();

    if (words.isSet("json")) writeJSON(run->report());
    if (!run->haveWorkersEnded()) {
        _console.flushResults();
        KVHistoryCenter::shared().saveWhatIsUnsaved();
        signals.endSuddenly();
    }
    if (const auto signal = signals.signal()) return static_cast<KVExitStatus>(128 + *signal);
    const bool areWarningsFine = !words.isSet("strict") || !run->hasWarnings();
    const bool isEverythingDone =
        hasDestination && run->isEverythingDone() && areWarningsFine && !lostSubtitles.haveChosen();
    return isEverythingDone ? KVExitStatus::success : KVExitStatus::failure;
}
