#include "core/KVFailureCause.h"

#include "core/KVErrorCenter.h"
#include "core/KVFailureLog.h"
#include "core/KVFailureTable.h"
#include "kvcore/KVBookmark.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVText.h"
#include "platform/KVFileManager.h"
#include "util/KVPreferenceKeys.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <optional>

namespace {

using Tool = KVFailureLog::Tool;

constexpr const char *missingTool = "%@ is not installed. Install the package \"%@\".";
constexpr const char *noTask = "Couldn't create task, aborting.";
constexpr QLatin1String unknownPicture{"This is no picture of a known kind"};
constexpr const char *failedText = "The conversion failed.";

QString localized(const char *key) {
    return KVLocalizationCenter::localized(key);
}

bool isIn(const QString &text, const char *pattern) {
    return text.contains(QString::fromUtf8(pattern).section(u'%', 0, 0)) ||
           text.contains(localized(pattern).section(u'%', 0, 0));
}

const KVFailureRow *rowFor(const QString &text) {
    const auto &rows = KVFailureTable::rows();
    const auto row = std::ranges::find_if(rows, [&](const KVFailureRow &candidate) {
        return std::ranges::any_of(candidate.patterns,
                                   [&](const char *pattern) { return isIn(text, pattern); });
    });
    return row == rows.end() ? nullptr : &*row;
}

/// An empty file is reported in the same words as a damaged one.
QString noteOnEmptySource(const KVConversionError &error, const QString &text) {
    const bool isSourceMeant = text.contains(QLatin1String("{source}: ")) || text.contains(unknownPicture);
    for (const auto &file : error.mediaFiles) {
        const QFileInfo source(file->url().toLocalFile());
        if (isSourceMeant && source.isFile() && source.size() == 0)
            return QStringLiteral("\n{source} is empty");
    }
    return {};
}

/// The sentence about a program that is not installed; empty if that is not what failed.
QString missingToolText(const KVConversionError &error) {
    constexpr std::array<std::array<const char *, 2>, 3> tools{
        {{"ffmpeg", "ffmpeg"}, {"dvdauthor", "dvdauthor"}, {"mkisofs", "genisoimage"}}};
    for (const auto &[name, package] : tools)
        for (const QString &text : {KVLocalizationCenter::localized(missingTool, {name, package}),
                                    KVText::format(QString::fromUtf8(missingTool), {name, package})})
            if (error.taskOutput.contains(text)) return text;
    return {};
}

/// The destination folder, if it is to blame for a task that could not be made.
std::optional<QString> uselessFolder(const KVConversionError &error) {
    if (error.mediaFiles.isEmpty()) return std::nullopt;
    const QUrl source = KVFileManager::deletingLastPathComponent(error.mediaFiles.first()->url());
    const QUrl folder =
        KVAppScopeBookmarksManager::url(KVPreferenceKeys::FixedDestinationBookmark).value_or(source);
    return KVFileManager::isWritable(folder) ? std::nullopt : std::optional(folder.toLocalFile());
}

bool isWithoutTask(const KVConversionError &error) {
    return error.taskArguments.isEmpty() && error.terminationStatus == -1 && error.reason.isEmpty() &&
           !error.mediaFiles.isEmpty();
}

KVFailureCause causeWithoutTask(const KVConversionError &error) {
    if (const auto folder = uselessFolder(error))
        return {.text = KVLocalizationCenter::localized(
                    "The destination folder %@ is missing or cannot be written to.", {*folder}),
                .remedy = localized("Choose another destination folder and try again."),
                .retry = KVFailureRetry::inAnotherFolder};
    return {.text = localized("The preset can make nothing of this file."),
            .remedy = localized("Choose a preset that fits the file."),
            .retry = KVFailureRetry::none};
}

/// The cause in the words of the output, where no row matches.
KVFailureCause unknownCause(const KVConversionError &error) {
    if (!error.reason.isEmpty()) return {.text = error.reason, .remedy = {}};
    const QString line = KVFailureLog::lastTellingLine(error);
    if (line.isEmpty()) return {.text = localized(failedText), .remedy = {}};
    return {.text = KVLocalizationCenter::localized("The conversion failed: %@", {line}), .remedy = {}};
}

KVFailureCause causeOfTool(const KVConversionError &error) {
    if (const QString missing = missingToolText(error); !missing.isEmpty())
        return {.text = missing, .remedy = localized("Install the package and try the conversion again.")};
    const QString text = KVFailureLog::comparableText(error);
    const KVFailureRow *row = rowFor(text + noteOnEmptySource(error, text));
    if (!row) return unknownCause(error);
    return {.text = row->text ? localized(row->text) : unknownCause(error).text,
            .remedy = row->remedy ? localized(row->remedy) : QString(),
            .retry = row->retry};
}

/// The sentence that names the step of making a disc; null for any other conversion.
const char *stepOfDisc(const KVConversionError &error) {
    switch (KVFailureLog::tool(error)) {
    case Tool::dvdauthor:
        return "The disc could not be put together: %@";
    case Tool::mkisofs:
        return "The image of the disc could not be made: %@";
    case Tool::ffmpeg:
        if (error.targetPreset && error.targetPreset->presetType() == KVMediaFileType::dvd)
            return "A film could not be prepared for the disc: %@";
        break;
    case Tool::none:
        break;
    }
    return nullptr;
}

} // namespace

KVFailureCause KVFailureCause::of(const KVConversionError &error) {
    KVFailureCause cause = isWithoutTask(error) ? causeWithoutTask(error) : causeOfTool(error);
    if (const char *step = stepOfDisc(error)) {
        cause.text = KVLocalizationCenter::localized(step, {cause.text});
        // Only the image goes into the folder that the user has chosen.
        if (KVFailureLog::outputPath(error).isEmpty() && cause.retry == KVFailureRetry::inAnotherFolder)
            cause.retry = KVFailureRetry::again;
    }
    return cause;
}

QString KVFailureCause::errorText(const KVConversionError &error) {
    if (!error.reason.isEmpty()) return error.reason;
    if (isWithoutTask(error)) {
        const auto folder = uselessFolder(error);
        if (!folder) return error.taskOutput.isEmpty() ? QString::fromUtf8(noTask) : error.taskOutput;
        return QStringLiteral("The destination folder %1 is missing or cannot be written to.").arg(*folder);
    }
    const KVFailureRow *row = rowFor(KVFailureLog::comparableText(error));
    if (row && row->errorText) return QString::fromUtf8(row->errorText);
    if (const int signal = KVFailureLog::signal(error))
        return QStringLiteral("The tool was ended by signal %1.").arg(signal);
    const QString line = KVFailureLog::lastTellingLine(error);
    return line.isEmpty() ? QString::fromUtf8(failedText) : line;
}

QString KVFailureCause::commandLine(const KVConversionError &error) {
    QString line;
    switch (KVFailureLog::tool(error)) {
    case Tool::none:
        return {};
    case Tool::ffmpeg:
        line = QStringLiteral("ffmpeg");
        break;
    case Tool::dvdauthor:
        line = QStringLiteral("dvdauthor");
        break;
    case Tool::mkisofs:
        line = QStringLiteral("mkisofs");
        break;
    }
    for (const QString &argument : error.taskArguments)
        line += ' ' + KVText::shellQuoted(argument);
    return line;
}

QStringList KVFailureCause::lastLines(const KVConversionError &error, int count) {
    const QStringList lines = KVFailureLog::lines(error.taskOutput);
    return lines.last(std::min<qsizetype>(std::max(count, 0), lines.size()));
}
