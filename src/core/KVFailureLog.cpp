#include "core/KVFailureLog.h"

#include "core/KVErrorCenter.h"
#include "kvcore/KVRegex.h"
#include "util/KVTempDirectory.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QFileInfo>

#include <array>
#include <cerrno>
#include <cstring>

namespace {

/// What is printed at the end whatever happened, how it describes input and output, what only follows from
/// an error that it has reported before, and the name of a part of ffmpeg whose message came in the next
/// chunk. A line may also be the rest of one whose beginning came in the chunk before.
const KVRegex &emptyPhrase() {
    static const KVRegex expression(QStringLiteral(
        "^(Conversion failed!|Exiting normally.*|video:.*audio:.*|unknown|Error while \\w+ .*stream.*|"
        "\\[q\\] command.*|Press \\[q\\].*|Qavg: .*|\\d+ frames left in the queue on closing|"
        "Error reinitializing filters!|Failed to inject frame .*|Failed to configure (in|out)put pad .*|"
        "Error marking filters as finished|Error initializing filter 'subtitles'.*|with args '.*|"
        "Last message repeated .*|Please use -.* is ambiguous|Error initializing output stream [0-9:]+ --|"
        "\\[[^\\]]* @ 0x[0-9a-f]+\\]|"
        // What is no error: the description of files, tracks and encoders.
        "Stream (mapping:|#.*)|(Input|Output) #.*|(Metadata|Side "
        "data|Chapters?|Program|Duration|start|bitrate|"
        "cpb|compatible_brands)\\b ?:?.*|\\S+ +: .*|[(,:].*|[0-9.]+k? (fps|tb[rnc]|kb/s)\\b.*|"
        "[0-9:.]+,?|N/A,?|Guessed Channel Layout .*|Starting (second|new) pass.*|"
        "using (SAR|cpu|AV).*|profile .*level.*|\\d+ - core .*|(frame|mb) [IPB]:?.*|8x8 transform .*|"
        "coded y,.*|i(16|8|4|8c) .*|Weighted P.*|ref [PB] .*|kb/s:.*|consecutive B-frames.*|"
        "x265 \\[info\\].*|final ratefactor: .*|encoded \\d+ frames.*|"
        "ffmpeg version .*|built with .*|configuration: .*|lib[a-z]+ +[0-9]+\\. .*|(STAT|INFO|WARN): "
        ".*|CHAPTERS: .*|I: -input-charset .*|The pad was .*|\\d+ extents written.*)$"));
    return expression;
}

const KVRegex &progressPhrase() {
    static const KVRegex expression(QStringLiteral(
        "^\\s*((frame|size)=.*time=.*|(frame|size)= *[0-9.]+.*|[0-9.]+% done.*|STAT: (fixing )?VOBU .*)$"));
    return expression;
}

/// After the cause mkisofs prints what failed in turn, and guesses at the cause.
QString withoutGuesses(const QString &output) {
    static const KVRegex follower(QStringLiteral(
        "[^\\n]*(Can't open VMG info for|Unable to parse DVD-Video|Unable to make a DVD-Video)"));
    const auto match = follower.firstMatch(output);
    return match.hasMatch() ? output.left(match.capturedStart()) : output;
}

/// Paths of the copies of the subtitles in the arguments.
QStringList copiesOfSubtitles(const KVConversionError &error) {
    static const QString burning = QStringLiteral("subtitles='");
    QStringList copies;
    for (QString argument : error.taskArguments) {
        if (argument.startsWith(burning)) argument = argument.sliced(burning.size()).chopped(1);
        if (QFileInfo(argument).path() == KVTempDirectoryPath()) copies += argument;
    }
    return copies;
}

/// The system's errors are in the language of the process, but those of ffmpeg and dvdauthor are English.
QString withEnglishErrors(QString text) {
    for (const int number : {ENOSPC, EDQUOT, EFBIG, EACCES, EPERM, EROFS, ENOENT, ENOTDIR, EISDIR, ENOMEM,
                             ENAMETOOLONG, EIO, ENOEXEC, EMFILE}) {
        const QString local = QString::fromLocal8Bit(std::strerror(number));
        const auto english = QString::fromLatin1(::strerrordesc_np(number));
        if (local != english) text.replace(local, english);
    }
    return text;
}

/// The lines that may hold a cause: what is indented describes files, or goes on with a list of guesses.
QString withoutDescriptions(const QString &output) {
    QStringList kept;
    for (const QString &line : KVFailureLog::lines(output))
        if (!line.front().isSpace() && !line.startsWith(QLatin1String("Input #")) &&
            !line.startsWith(QLatin1String("Output #")))
            kept += line;
    return kept.join(u'\n');
}

void hidePath(QString &text, const QString &path, const char *name) {
    if (path.size() > 1) text.replace(path, QLatin1String(name));
}

} // namespace

KVFailureLog::Tool KVFailureLog::tool(const KVConversionError &error) {
    if (error.taskArguments.isEmpty()) return Tool::none;
    if (error.taskArguments.first() == "-x") return Tool::dvdauthor;
    return error.taskArguments.first() == "-dvd-video" ? Tool::mkisofs : Tool::ffmpeg;
}

int KVFailureLog::signal(const KVConversionError &error) {
    constexpr int offset = 128; // as a shell reports it
    constexpr int greatest = 31;
    const int signal = error.terminationStatus - offset;
    return signal > 0 && signal <= greatest ? signal : 0;
}

QString KVFailureLog::outputPath(const KVConversionError &error) {
    QString path;
    if (tool(error) == Tool::ffmpeg) path = error.taskArguments.last();
    if (tool(error) == Tool::mkisofs) path = error.taskArguments.value(error.taskArguments.indexOf("-o") + 1);
    return path.startsWith(KVTempDirectoryPath() + '/') ? QString() : path;
}

QString KVFailureLog::comparableText(const KVConversionError &error) {
    // The program's own reason is more certain than anything in the output.
    QString text = error.reason.isEmpty() ? withoutDescriptions(error.taskOutput) : QString();
    hidePath(text, outputPath(error), "{output}");
    QString reason = error.reason;
    for (const auto &file : error.mediaFiles) {
        hidePath(text, file->url().toLocalFile(), "{source}");
        hidePath(reason, file->url().toLocalFile(), "{source}");
    }
    for (const QString &copy : copiesOfSubtitles(error))
        hidePath(text, copy, "{subtitles}");
    hidePath(text, KVTempDirectoryPath(), "{temporary}");
    // A picture that could not be written: the path, then the system's error.
    if (const auto colon = reason.lastIndexOf(QLatin1String(": ")); colon > 0 && reason.startsWith(u'/'))
        reason.replace(0, colon, QStringLiteral("{output}"));
    return withEnglishErrors(text + '\n' + reason) +
           QStringLiteral("\n{status %1}").arg(error.terminationStatus);
}

QString KVFailureLog::lastTellingLine(const KVConversionError &error) {
    QString output = withoutGuesses(error.taskOutput);
    const auto video = std::dynamic_pointer_cast<KVVideoFile>(error.mediaFiles.value(0));
    if (video && video->subtitlesFileURL)
        for (const QString &copy : copiesOfSubtitles(error))
            output.replace(copy, video->subtitlesFileURL->toLocalFile());
    const QStringList all = lines(output);
    for (auto line = all.rbegin(); line != all.rend(); ++line) {
        QString text = line->trimmed();
        if (text.startsWith(u'[') && text.contains(QLatin1String("] ")))
            text = text.section(QStringLiteral("] "), 1).trimmed();
        if (!text.isEmpty() && !emptyPhrase().matches(text)) return text;
    }
    return {};
}

QStringList KVFailureLog::lines(const QString &output) {
    QStringList lines = QString(output).replace(u'\r', u'\n').split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf(
        [](const QString &line) { return line.trimmed().isEmpty() || progressPhrase().matches(line); });
    return lines;
}
