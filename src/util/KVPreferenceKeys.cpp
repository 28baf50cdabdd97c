#include "util/KVPreferenceKeys.h"

#include "kvcore/KVBookmark.h"

#include <functional>
#include <vector>

namespace {

KVPreferences &store() {
    return KVPreferences::shared();
}

struct Reflected {
    QString name;
    std::function<QVariant()> read;
};

Reflected flag(const char *name, const KVPreferenceKeys::Key &key, bool defaultValue = false) {
    return {QString::fromLatin1(name), [key, defaultValue] { return store().boolean(key, defaultValue); }};
}

QVariant fixedDestination() {
    const auto url = KVAppScopeBookmarksManager::url(KVPreferenceKeys::FixedDestinationBookmark);
    return url ? QString::fromLatin1(url->toEncoded()) : QStringLiteral("nil");
}

Reflected lastUsedPresetName(KVMediaFileType type) {
    return {"lastUsedPresetNameForMediaType_" + KVMediaFileTypes::caseName(type), [type] {
                const QString name = store().value(KVPreferenceKeys::lastUsedPreset(type)).toString();
                return name.isEmpty() ? QStringLiteral("nil") : name;
            }};
}

std::vector<Reflected> reflectedSettings() {
    using namespace KVPreferenceKeys;
    std::vector<Reflected> settings{
        flag("addsToiTunesWhenDone", AddToiTunesWhenDone),
        flag("bouncesDockIconWhenDone", BounceIconInDockOnDone),
        flag("clearsFinishedItemsRightAway", ClearFinishedItemsRightAway),
        {"cpuSettings", [] { return static_cast<int>(KVReflectablePreferences::cpuSettings()); }},
        flag("disablePreviews", DisablePreviews),
        {"playsSoundsWhenDone", [] { return !store().boolean(DontPlaySoundOnDone, false); }},
        {"fixedDestinationURL", fixedDestination},
        flag("hasGuessedLocation", HasGuessedLocation),
        flag("hasPerformedSandboxTransition", HasPerformedSandoxTransition),
        {"iTunesGenre", [] { return store().value(iTunesGenre, QString("")); }},
        {"iTunesMediaKind", [] { return store().integer(iTunesMediaKind, 0); }},
        {"iTunesPlaylist", KVReflectablePreferences::iTunesPlaylist},
    };
    for (const KVMediaFileType type : KVMediaFileTypes::allTypes)
        settings.push_back(lastUsedPresetName(type));
    const std::vector<Reflected> rest{
        {"numberOfConversionsPerformed", [] { return store().integer(NumberOfConversionPerformed, 0); }},
        flag("preservesCreationDate", PreserveCreationDate),
        flag("putsComputerToSleepWhenDone", PutComputerToSleepOnDone),
        flag("quitsWhenDone", QuitKalvoraAfterFinishingConversion),
        flag("recursivelyProcessesAllFolders", RecursivelyProcessAllFolders),
        flag("removesFileAfterAddingToiTunes", RemoveFileAfterAddingToiTunes),
        flag("requiresConfirmationOfConversionCancelation", RequiresConfirmationOfConversionCancelation,
             true),
        flag("saveFilesToSourceFolder", SaveToSourceFolder, true),
        flag("usesNTSCFormat", UsesNTSCFormat),
    };
    settings.insert(settings.end(), rest.begin(), rest.end());
    return settings;
}

} // namespace

KVPreferenceKeys::Key KVPreferenceKeys::lastUsedPreset(KVMediaFileType type) {
    return {"ZRLastUsedPreset" + KVMediaFileTypes::localizedName(type)};
}

KVCPUSettings KVReflectablePreferences::cpuSettings() {
    const bool prefersLower = store().boolean(KVPreferenceKeys::PreferLowerCPUUsage, false);
    switch (store().integer(KVPreferenceKeys::CPUSettings, prefersLower ? 1 : 0)) {
    case 1:
        return KVCPUSettings::medium;
    case 2:
        return KVCPUSettings::low;
    default:
        return KVCPUSettings::high;
    }
}

QString KVReflectablePreferences::iTunesPlaylist() {
    const QString library = QStringLiteral("Library");
    const QString playlist = store().value(KVPreferenceKeys::iTunesPlaylist, library).toString();
    return playlist.isEmpty() ? library : playlist;
}

QVariantMap KVReflectablePreferences::dictionaryRepresentation() {
    QVariantMap dictionary;
    for (const Reflected &setting : reflectedSettings())
        dictionary.insert(setting.name, setting.read());
    return dictionary;
}

QStringList KVReflectablePreferences::reflectedNames() {
    QStringList names;
    for (const Reflected &setting : reflectedSettings())
        names.append(setting.name);
    return names;
}
