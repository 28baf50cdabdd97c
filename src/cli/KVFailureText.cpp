#include "cli/KVFailureText.h"

#include "core/KVErrorCenter.h"
#include "kvcore/KVBookmark.h"
#include "kvcore/KVRegex.h"
#include "platform/KVFileManager.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVTempDirectory.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QFileInfo>

#include <array>

namespace {

/// What tools say in their own words.
struct Cause {
    const char *said;
    const char *meant;
};

constexpr std::array causes{
    Cause{"No space left on device", "There is no more space left on the disk."},
    Cause{"dimensions not set", "The file does not tell the size of its picture."},
    Cause{"Cannot determine format of input stream",
          "A track of the file holds nothing that can be decoded."},
};

/// What a tool prints at its end whatever happened, how it shows its progress, what only follows from an
/// error that it has told before, and the name of a part of the tool whose message came a moment later.
const KVRegex &emptyPhrase() {
    static const KVRegex expression(QStringLiteral(
        "^(Conversion failed!|Exiting normally.*|(frame|size)=.*|video:.*audio:.*|unknown|Error while \\w+ "
        ".*stream.*|"
        "\\[q\\] command.*|Press \\[q\\].*|Qavg: .*|\\d+ frames left in the queue on closing|"
        "Error reinitializing filters!|Failed to inject frame .*|Failed to configure input pad .*|"
        "Error marking filters as finished|Error initializing filter 'subtitles'.*|with args '.*|"
        "Last message repeated .*|Stream (mapping:|#[0-9:]+ -> .*)|Error initializing output stream [0-9:]+ "
        "--|"
        "\\[[^\\]]* @ 0x[0-9a-f]+\\])$"));
    return expression;
}

/// Behind the cause the tool for images tells what failed in turn, and guesses at the cause.
QString withoutGuesses(const QString &output) {
    static const KVRegex follower(QStringLiteral(
        "[^\\n]*(Can't open VMG info for|Unable to parse DVD-Video|Unable to make a DVD-Video)"));
    const auto match = follower.firstMatch(output);
    return match.hasMatch() ? output.left(match.capturedStart()) : output;
}

/// The tool is given a copy of the subtitles; a person knows the file that it was made of.
QString withOwnSubtitles(QString text, const KVConversionError &error) {
    const auto video = std::dynamic_pointer_cast<KVVideoFile>(error.mediaFiles.value(0));
    if (!video || !video->subtitlesFileURL) return text;
    static const QString burning = QStringLiteral("subtitles='");
    for (QString copy : error.taskArguments) {
        if (copy.startsWith(burning)) copy = copy.sliced(burning.size()).chopped(1);
        if (QFileInfo(copy).path() == KVTempDirectoryPath())
            text.replace(copy, video->subtitlesFileURL->toLocalFile());
    }
    return text;
}

/// The last line that tells something, without the name of the part of the tool that says it.
QString lastTellingLine(QString output) {
    const QStringList lines = output.replace(u'\r', u'\n').split(u'\n', Qt::SkipEmptyParts);
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        QString text = line->trimmed();
        if (text.startsWith(u'[') && text.contains(QLatin1String("] ")))
            text = text.section(QStringLiteral("] "), 1).trimmed();
        if (!text.isEmpty() && !emptyPhrase().matches(text)) return text;
    }
    return {};
}

/// The cause that stands behind a task that could not be made: the place of the output, if that is to blame.
QString textWithoutTask(const KVConversionError &error) {
    const QUrl source = KVFileManager::deletingLastPathComponent(error.mediaFiles.first()->url());
    const QUrl folder =
        KVAppScopeBookmarksManager::url(KVPreferenceKeys::FixedDestinationBookmark).value_or(source);
    if (KVFileManager::isWritable(folder)) return error.taskOutput;
    return QStringLiteral("The destination folder %1 is missing or cannot be written to.")
        .arg(folder.toLocalFile());
}

} // namespace

QString KVFailureText(const KVConversionError &error) {
    if (!error.reason.isEmpty()) return error.reason;
    if (error.taskArguments.isEmpty() && !error.mediaFiles.isEmpty() && error.terminationStatus == -1)
        return textWithoutTask(error);
    for (const Cause &cause : causes)
        if (error.taskOutput.contains(QLatin1String(cause.said))) return QString::fromUtf8(cause.meant);
    const QString line = lastTellingLine(withOwnSubtitles(withoutGuesses(error.taskOutput), error));
    // A shell's way to tell of a signal.
    constexpr int signalOffset = 128;
    constexpr int greatestSignal = 64;
    const int signal = error.terminationStatus - signalOffset;
    if (signal > 0 && signal <= greatestSignal)
        return QStringLiteral("The tool was ended by signal %1.").arg(signal);
    return line.isEmpty() ? QStringLiteral("The conversion failed.") : line;
}
