#include "controllers/KVRunNotifications.h"

#include "controllers/KVApplicationServices.h"
#include "controllers/KVRowOutcome.h"
#include "conversion/conversions/KVConversion.h"
#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVFileManager.h"

namespace {

/// The text for one file or for several that were stitched, with their names.
QString textWithNames(const char *oneFile, const char *severalFiles, const KVConversion &conversion) {
    QStringList names;
    for (const auto &file : conversion.mediaFiles())
        names.append(KVFileManager::lastPathComponent(file->url()));
    return KVLocalizationCenter::localized(names.size() > 1 ? severalFiles : oneFile, {names.join(", ")});
}

QString countOfFailures(int failures) {
    if (failures == 0) return {};
    return failures == 1 ? KVLocalizationCenter::localized("One conversion failed.")
                         : KVLocalizationCenter::localized("%d conversions failed.", {failures});
}

} // namespace

KVRunNotifications::KVRunNotifications(KVApplicationServices &services)
    : _services(services) {}

void KVRunNotifications::conversionDidEnd(const KVConversion &conversion) {
    const auto outcome = KVRowOutcome::ofEnded(conversion);
    if (outcome.kind == KVRowOutcome::Kind::cancelled) return;
    if (!outcome.isSuccess()) {
        ++_failures;
        _notifyOfFailure(conversion, outcome.summary);
        return;
    }
    ++_successes;
    if (outcome.kind == KVRowOutcome::Kind::succeededWithWarnings) ++_successesWithWarnings;
    _notifyOfSuccess(conversion);
}

void KVRunNotifications::_notifyOfSuccess(const KVConversion &conversion) {
    QString text;
    if (_successes == 1) {
        text = textWithNames("File %@ has been successfully converted.",
                             "Files %@ have been successfully stitched.", conversion);
        if (const QStringList warnings = conversion.warnings(); !warnings.isEmpty())
            text += QLatin1Char('\n') + warnings.join('\n');
    } else if (_successesWithWarnings == 0) {
        text = KVLocalizationCenter::localized("%d files have been converted.", {_successes});
    } else {
        text = KVLocalizationCenter::localized("%d files have been converted, %d of them with warnings.",
                                               {_successes, _successesWithWarnings});
    }
    _services.postUserNotification(KVLocalizationCenter::localized("Conversion finished!"), text,
                                   QStringLiteral("successes of run %1").arg(_run));
}

void KVRunNotifications::_notifyOfFailure(const KVConversion &conversion, const QString &cause) {
    const QString text =
        textWithNames("Conversion for file %@ has failed.", "Stitching files %@ has failed.", conversion);
    _services.postUserNotification(KVLocalizationCenter::localized("Conversion failed!"),
                                   text + QLatin1Char('\n') + cause);
}

void KVRunNotifications::runDidEnd() {
    _services.postUserNotification(KVLocalizationCenter::localized("All conversions are done!"),
                                   countOfFailures(_failures));
    ++_run;
    _successes = _successesWithWarnings = _failures = 0;
}
