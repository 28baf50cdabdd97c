#include "controllers/KVFailureDetails.h"

#include "conversion/conversions/KVConversion.h"
#include "core/KVFailureCause.h"
#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVFileManager.h"

#include <QSaveFile>

#include <cerrno>

namespace {

constexpr int mostLogLines = 200;

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
        details.command = KVFailureCause::commandLine(*failure);
        details.log = KVFailureCause::lastLines(*failure, mostLogLines).join('\n');
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
