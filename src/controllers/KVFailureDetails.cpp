#include "controllers/KVFailureDetails.h"

#include "conversion/conversions/KVConversion.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVText.h"
#include "platform/KVFileManager.h"

#include <QSaveFile>

#include <array>
#include <cerrno>

namespace {

constexpr qsizetype mostLogLines = 200;

/// What the disc tools are always given first; everything else is a run of ffmpeg.
struct Tool {
    const char *firstArgument;
    const char *name;
};
constexpr std::array discTools{Tool{"-x", "dvdauthor"}, Tool{"-dvd-video", "mkisofs"}};

QString commandOf(const QStringList &arguments) {
    if (arguments.isEmpty()) return {};
    QString command = QStringLiteral("ffmpeg");
    for (const Tool &tool : discTools)
        if (arguments.first() == QLatin1String(tool.firstArgument)) command = QLatin1String(tool.name);
    for (const QString &argument : arguments)
        command += ' ' + KVText::shellQuoted(argument);
    return command;
}

/// Of a line that was written over and over, only what could be seen at the end.
QString withoutOverwrittenText(QString line) {
    while (line.endsWith('\r'))
        line.chop(1);
    return line.sliced(line.lastIndexOf('\r') + 1);
}

QString lastLines(const QString &output) {
    QStringList lines;
    for (const QString &line : output.split('\n'))
        if (const QString text = withoutOverwrittenText(line); !text.trimmed().isEmpty()) lines += text;
    return lines.mid(std::max<qsizetype>(0, lines.size() - mostLogLines)).join('\n');
}

QString namesOf(const KVMediaFileList &files) {
    QStringList names;
    for (const auto &file : files)
        names += KVFileManager::lastPathComponent(file->url());
    return names.join(QStringLiteral(" & "));
}

} // namespace

KVFailureDetails KVFailureDetails::of(const KVConversion &conversion) {
    KVFailureDetails details{.name = namesOf(conversion.mediaFiles()), .warnings = conversion.warnings()};
    details.hasFailed = !conversion.hasSucceeded();
    if (!details.hasFailed) return details;
    const auto cause = conversion.failureCause();
    details.cause = cause ? cause->text : conversion.statusString();
    if (cause) {
        details.remedy = cause->remedy;
        details.retry = cause->retry;
    }
    if (const auto failure = conversion.failure()) {
        details.command = commandOf(failure->taskArguments);
        details.log = lastLines(failure->taskOutput);
    }
    return details;
}

QString KVFailureDetails::text() const {
    QStringList paragraphs{name};
    const auto add = [&](const char *title, const QString &content) {
        if (!content.isEmpty())
            paragraphs += KVLocalizationCenter::localized(title) + QLatin1Char('\n') + content;
    };
    add("What went wrong:", cause);
    add("What you can do:", remedy);
    add("Warnings:", warnings.join('\n'));
    add("Command:", command);
    add("Last lines of the log:", log);
    return paragraphs.join(QStringLiteral("\n\n")) + QLatin1Char('\n');
}

QString KVFailureDetails::proposedFileName() const {
    return KVFileManager::fittingName(KVLocalizationCenter::localized("Details of %@", {name}),
                                      QStringLiteral(".txt"));
}

KVResult<void> KVFailureDetails::save(const QUrl &url) const {
    const QString path = url.toLocalFile();
    QSaveFile file(path);
    if (file.open(QSaveFile::WriteOnly) && file.write(text().toUtf8()) >= 0 && file.commit()) return {};
    return tl::unexpected(KVError{KVPOSIXErrorDomain, errno, path + ": " + file.errorString(), {}});
}
