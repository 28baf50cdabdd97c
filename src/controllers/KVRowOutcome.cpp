#include "controllers/KVRowOutcome.h"

#include "conversion/conversions/KVConversion.h"
#include "kvcore/KVLocalizationCenter.h"

namespace {

QString onOneLine(const QString &text) {
    return text.simplified();
}

/// The sentence as the rest of another one. An abbreviation ("ISO ...") keeps its capitals.
QString continuing(QString sentence) {
    const bool isAbbreviation = sentence.size() > 1 && !sentence.at(1).isLower() && !sentence.at(1).isSpace();
    if (!sentence.isEmpty() && !isAbbreviation) sentence[0] = sentence.at(0).toLower();
    return sentence;
}

QString summaryOf(const QStringList &warnings) {
    if (warnings.size() > 1)
        return KVLocalizationCenter::localized("Done, with %d warnings", {int(warnings.size())});
    // Where a translation has a colon, a whole sentence follows.
    const bool isWholeSentence = KVLocalizationCenter::localized("Done, but %@").endsWith(": %@");
    const QString warning = onOneLine(warnings.first());
    return KVLocalizationCenter::localized("Done, but %@", {isWholeSentence ? warning : continuing(warning)});
}

KVRowOutcome outcomeOfFailure(const KVConversion &conversion) {
    using enum KVRowOutcome::Kind;
    const auto cause = conversion.failureCause();
    if (!cause) { // the user gave no place for the result
        const QString status = conversion.statusString();
        return {failed, status.isEmpty() ? KVLocalizationCenter::localized("Error converting.") : status};
    }
    QStringList sentences{cause->text};
    if (!cause->remedy.isEmpty()) sentences += cause->remedy;
    return {failed, onOneLine(cause->text), sentences};
}

} // namespace

KVRowOutcome KVRowOutcome::of(const KVConversion &conversion) {
    return conversion.isFinished() ? ofEnded(conversion) : KVRowOutcome{};
}

KVRowOutcome KVRowOutcome::ofEnded(const KVConversion &conversion) {
    using enum Kind;
    if (!conversion.hasSucceeded()) {
        const bool isByUser = conversion.isCancelled() && !conversion.failure();
        return isByUser ? KVRowOutcome{cancelled, KVLocalizationCenter::localized("User cancelled.")}
                        : outcomeOfFailure(conversion);
    }
    const QStringList warnings = conversion.warnings();
    if (warnings.isEmpty()) return {succeeded};
    return {succeededWithWarnings, summaryOf(warnings), warnings};
}
