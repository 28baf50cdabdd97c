#include "cli/KVPreferencesCommand.h"

#include "cli/KVInputPath.h"
#include "cli/KVNearestNames.h"
#include "cli/KVPrintableText.h"
#include "cli/KVValueText.h"
#include "util/KVPreferenceKeys.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>

namespace {

enum class Kind { boolean, whole, text, folder, other };

struct KnownKey {
    KVPreferences::Key key;
    Kind kind;
};

/// What the program reads, and as what.
const std::vector<KnownKey> &knownKeys() {
    using namespace KVPreferenceKeys;
    static const std::vector<KnownKey> keys{
        {AddToiTunesWhenDone, Kind::boolean},
        {automaticallyAddSubtitles, Kind::boolean},
        {BounceIconInDockOnDone, Kind::boolean},
        {ClearFinishedItemsRightAway, Kind::boolean},
        {CPUSettings, Kind::whole},
        {DisablePreviews, Kind::boolean},
        {DontPlaySoundOnDone, Kind::boolean},
        {FixedDestinationBookmark, Kind::folder},
        {HasGuessedLocation, Kind::boolean},
        {HasPerformedSandoxTransition, Kind::boolean},
        {iTunesGenre, Kind::text},
        {iTunesMediaKind, Kind::whole},
        {iTunesPlaylist, Kind::text},
        {NumberOfConversionPerformed, Kind::whole},
        {PreferLowerCPUUsage, Kind::boolean},
        {PreserveCreationDate, Kind::boolean},
        {PutComputerToSleepOnDone, Kind::boolean},
        {QuitKalvoraAfterFinishingConversion, Kind::boolean},
        {RecursivelyProcessAllFolders, Kind::boolean},
        {RemoveFileAfterAddingToiTunes, Kind::boolean},
        {RequiresConfirmationOfConversionCancelation, Kind::boolean},
        {SaveToSourceFolder, Kind::boolean},
        {UsesNTSCFormat, Kind::boolean},
        {PresetSettings, Kind::other},
        {DidUpdateTypeInDefaults, Kind::boolean},
        {HistoryCenterItems, Kind::other},
        {{"KVUsesHarwdareAcceleration"}, Kind::boolean},
        {{"KVLastReportEmailAddress"}, Kind::text},
        {{"KVDidSeeReleaseNotes1202"}, Kind::boolean},
        {lastUsedPreset(KVMediaFileType::audio), Kind::text},
        {lastUsedPreset(KVMediaFileType::video), Kind::text},
        {lastUsedPreset(KVMediaFileType::picture), Kind::text},
        {lastUsedPreset(KVMediaFileType::dvd), Kind::text},
    };
    return keys;
}

bool fits(const QVariant &value, Kind kind) {
    const auto type = static_cast<QMetaType::Type>(value.typeId());
    switch (kind) {
    case Kind::boolean:
    case Kind::whole:
        return type == QMetaType::Bool || type == QMetaType::LongLong;
    case Kind::text:
    case Kind::folder:
        return type == QMetaType::QString;
    case Kind::other:
        return false;
    }
    return false;
}

QString kindName(Kind kind) {
    constexpr std::array names{"true or false", "a whole number", "a text", "a folder", "no single value"};
    return QLatin1String(names.at(static_cast<size_t>(kind)));
}

/// Why the program will make nothing of the value; empty where all is well.
QString doubt(const QString &key, const QVariant &value) {
    const auto known =
        std::ranges::find(knownKeys(), key, [](const KnownKey &candidate) { return candidate.key.text; });
    if (known != knownKeys().end())
        return fits(value, known->kind)
                   ? QString()
                   : QStringLiteral("note: %1 is read as %2").arg(key, kindName(known->kind));
    QStringList names;
    for (const KnownKey &candidate : knownKeys())
        names.append(candidate.key.text);
    return QStringLiteral("note: nothing reads %1%2").arg(key, KVNearestNames::hint(key, names));
}

QJsonValue json(const QVariant &value) {
    return QJsonValue::fromVariant(value);
}

/// One line; lists and dictionaries as JSON.
QString plainText(const QVariant &value) {
    const QJsonValue converted = json(value);
    if (!converted.isArray() && !converted.isObject()) return KVPrintableText::ofText(value.toString());
    const QJsonDocument document =
        converted.isArray() ? QJsonDocument(converted.toArray()) : QJsonDocument(converted.toObject());
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

} // namespace

QString KVPreferencesCommand::details() const {
    return "VALUE is read as true or false, a whole number, a real number, else as text. A VALUE or KEY "
           "that\n"
           "begins with \"-\" stands behind \"--\". \"get\" of a key without a value gives exit status 1. A "
           "window\n"
           "that runs sees a change at once. The store is\n" +
           KVPreferences::shared().filePath();
}

KVExitStatus KVPreferencesCommand::run(const KVParsedWords &words) {
    const bool isJSON = words.isSet("json");
    QStringList rest;
    for (const KVCommandArgument &argument : words.arguments()) {
        if (!argument.isReadable) return usageError(QStringLiteral("%1 is not UTF-8").arg(argument.text));
        rest.append(argument.text);
    }
    if (rest.isEmpty()) return _list(isJSON);

    const QString action = rest.takeFirst();
    const QStringList actions{"get", "set", "remove"};
    if (!actions.contains(action))
        return usageError(
            QStringLiteral("\"%1\" is none of get, set and remove").arg(KVPrintableText::ofText(action)));
    const qsizetype wanted = action == QLatin1String("set") ? 2 : 1;
    if (rest.size() != wanted)
        return usageError(
            QStringLiteral("%1 takes %2")
                .arg(action, wanted == 2 ? QStringLiteral("a KEY and a VALUE") : QStringLiteral("one KEY")));
    if (rest.first().isEmpty()) return usageError(QStringLiteral("the KEY is empty"));
    if (isJSON && action != QLatin1String("get"))
        return usageError(QStringLiteral("%1 prints nothing, so --json is out of place").arg(action));

    if (action == QLatin1String("get")) return _get(rest[0], isJSON);
    if (action == QLatin1String("set")) return _set(rest[0], rest[1]);
    return _store(rest[0], QVariant());
}

KVExitStatus KVPreferencesCommand::_list(bool isJSON) const {
    const auto &preferences = KVPreferences::shared();
    QJsonObject all;
    for (const QString &key : preferences.allKeys()) {
        const QVariant value = preferences.value({key});
        if (isJSON)
            all.insert(key, json(value));
        else
            _console.writeResult(
                QStringLiteral("%1 = %2").arg(KVPrintableText::ofText(key), plainText(value)));
    }
    if (isJSON) writeJSON(all);
    return KVExitStatus::success;
}

KVExitStatus KVPreferencesCommand::_get(const QString &key, bool isJSON) const {
    const QVariant value = KVPreferences::shared().value({key});
    if (isJSON)
        writeJSON(json(value));
    else if (value.isValid())
        _console.writeResult(plainText(value));
    if (value.isValid()) return KVExitStatus::success;
    sayFailure(QStringLiteral("%1 has no value").arg(key));
    return KVExitStatus::failure;
}

KVExitStatus KVPreferencesCommand::_set(const QString &key, const QString &text) const {
    QVariant value = KVValueText::parse(text);
    // A folder is meant as seen from here, whoever reads it later.
    if (key == KVPreferenceKeys::FixedDestinationBookmark.text && !text.startsWith(QLatin1String("file:")) &&
        !text.startsWith(u'~'))
        value = KVInputPath::absolute(text);
    if (const QString note = doubt(key, value); !note.isEmpty()) _console.say(note);
    return _store(key, value);
}

KVExitStatus KVPreferencesCommand::_store(const QString &key, const QVariant &value) const {
    auto &preferences = KVPreferences::shared();
    if (preferences.perform([&] { preferences.setValue(value, {key}); })) return KVExitStatus::success;
    sayFailure(QStringLiteral("the preferences could not be written to %1").arg(preferences.filePath()));
    return KVExitStatus::failure;
}
