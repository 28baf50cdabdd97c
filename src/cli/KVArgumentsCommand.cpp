#include "cli/KVArgumentsCommand.h"

#include "cli/KVConversionRequest.h"
#include "cli/KVLostSubtitles.h"
#include "cli/KVOwnFiles.h"
#include "cli/KVRequestIntake.h"
#include "controllers/KVKalvoraAppDelegate.h"
#include "conversion/conversions/KVConversion.h"
#include "kvcore/KVBookmark.h"
#include "kvcore/KVText.h"
#include "platform/KVFileManager.h"
#include "util/KVPreferenceKeys.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

namespace {

/// Where a conversion of these files would put its output before names are settled.
QUrl wantedOutput(const KVPreset &preset, const KVMediaFileList &files) {
    const QUrl first = files.first()->url();
    const QUrl folder = KVAppScopeBookmarksManager::url(KVPreferenceKeys::FixedDestinationBookmark)
                            .value_or(KVFileManager::deletingLastPathComponent(first));
    const QString base = KVFileManager::deletingPathExtension(KVFileManager::lastPathComponent(first));
    return KVFileManager::appendingPathExtension(
        KVFileManager::appendingPathComponent(folder, base),
        preset.pathExtension().value_or(KVFileManager::pathExtension(first)));
}

} // namespace

QString KVArgumentsCommand::details() const {
    return "Several FILEs are stitched into one output, where the preset can do that; else the first "
           "counts.\n"
           "A disc is made of the lists of its single files.\n"
           "The list is written for every version of the tool: what the installed one does not know is left\n"
           "out when it is launched.";
}

QList<KVCommandOption> KVArgumentsCommand::options() const {
    return KVConversionRequest::options() + QList{jsonOption};
}

KVExitStatus KVArgumentsCommand::run(const KVParsedWords &words) {
    const auto request = KVConversionRequest::make(words);
    if (!request) return usageError(request.error());
    plugInQuestions(words);
    const KVOwnFiles ownFiles(_console);

    const bool isJSON = words.isSet("json");
    if (!request->unreadableInputs.isEmpty())
        return _printError(request->unreadableInputs.first() + ": The name is not UTF-8.", isJSON);
    if (const auto obstacle = request->prepareEncoder()) return _printError(*obstacle, isJSON);
    if (!request->settleDestination()) return _printError(QStringLiteral("No output URL is set."), isJSON);

    const auto files = _filesOf(*request);
    if (!files) return _printError(files.error(), isJSON);
    const auto output = request->preset->outputURLForFiles(*files, wantedOutput(*request->preset, *files));
    const QString noTask = QStringLiteral("Couldn't create task, aborting.");
    if (!output) return _printError(noTask, isJSON);
    const QUrl folder = KVFileManager::deletingLastPathComponent(*output);
    if (!KVFileManager::isWritable(folder))
        return _printError(QStringLiteral("The destination folder %1 is missing or cannot be written to.")
                               .arg(folder.toLocalFile()),
                           isJSON);
    const KVLostSubtitles lostSubtitles(_console, request->subtitles);
    const QStringList arguments = request->preset->argumentsForFiles(*files, *output);
    if (arguments.isEmpty()) {
        const QString refusal = request->preset->refusalOfFiles(*files);
        return _printError(refusal.isEmpty() ? noTask : refusal, isJSON);
    }
    const KVExitStatus status = _print(*output, arguments, isJSON);
    return lostSubtitles.haveChosen() ? KVExitStatus::failure : status;
}

tl::expected<KVMediaFileList, QString>
KVArgumentsCommand::_filesOf(const KVConversionRequest &request) const {
    KVMediaFileList files;
    QString firstReason;
    const auto observer = std::make_shared<KVRequestIntake>(
        request, [&](const std::shared_ptr<KVConversion> &conversion) { files += conversion->mediaFiles(); },
        [&](const KVIntakeRefusal &refusal) {
            if (firstReason.isEmpty() && KVRequestIntake::isFailure(refusal))
                firstReason = QStringLiteral("%1: %2").arg(refusal.path, refusal.reason);
        });
    KVKalvoraAppDelegate intake;
    intake.setObserver(observer);
    // The members of a large folder would come in behind the inputs that follow.
    for (const QUrl &input : request.inputs) {
        intake.addFilesInBackground({input});
        intake.waitUntilLoaded(std::numeric_limits<double>::infinity());
    }

    if (!firstReason.isEmpty()) return tl::unexpected(firstReason);
    if (files.isEmpty()) return tl::unexpected(QStringLiteral("There is nothing to convert."));
    return files;
}

KVExitStatus KVArgumentsCommand::_print(const QUrl &output, const QStringList &arguments, bool isJSON) const {
    if (isJSON) {
        writeJSON(QJsonObject{{"output", output.toLocalFile()},
                              {"arguments", QJsonArray::fromStringList(arguments)}});
        return KVExitStatus::success;
    }
    QString line = QStringLiteral("ffmpeg");
    for (const QString &argument : arguments)
        line += ' ' + KVText::shellQuoted(argument);
    _console.writeResult(line);
    return KVExitStatus::success;
}

KVExitStatus KVArgumentsCommand::_printError(const QString &message, bool isJSON) const {
    if (isJSON) writeJSON(QJsonObject{{"error", message}});
    sayFailure(message);
    return KVExitStatus::failure;
}
