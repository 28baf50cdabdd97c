#pragma once

#include "kvcore/KVPreferences.h"
#include "util/KVMediaFileType.h"

#include <QVariantMap>

/// The keys of the program's settings. The texts are in users' files: they are never changed, misspelt or
/// not. A missing key reads as the default that the reader passes; the defaults stand behind the keys.
namespace KVPreferenceKeys {
using Key = KVPreferences::Key;

inline const Key AddToiTunesWhenDone{"ZRAddToiTunesWhenDone"};                   // false
inline const Key automaticallyAddSubtitles{"KVAutomaticallyAddSubtitles"};       // true
inline const Key BounceIconInDockOnDone{"ZRBounceIconInDockOnDone"};             // false
inline const Key ClearFinishedItemsRightAway{"ZRClearFinishedItemsRightAway"};   // false
inline const Key CPUSettings{"KVCPUSettings"};                                   // see cpuSettings()
inline const Key DisablePreviews{"KVDisablePreviews"};                           // false
inline const Key DontPlaySoundOnDone{"ZRDontPlaySoundOnDone"};                   // false
inline const Key FixedDestinationBookmark{"ZRFixedDestinationBookmark"};         // none
inline const Key HasGuessedLocation{"ZRHasGuessedLocation"};                     // false
inline const Key HasPerformedSandoxTransition{"ZRHasPerformedSandoxTransition"}; // false
inline const Key iTunesGenre{"ZRiTunesGenre"};                                   // ""
inline const Key iTunesMediaKind{"ZRiTunesMediaKind"};                           // 0
inline const Key iTunesPlaylist{"ZRiTunesPlaylist"};                             // "Library"
inline const Key NumberOfConversionPerformed{"ZRNumberOfConversionPerformed"};   // 0
inline const Key PreferLowerCPUUsage{"ZRPreferLowerCPUUsage"};                   // false, only read
inline const Key PreserveCreationDate{"ZRPreserveCreationDate"};                 // false
inline const Key PutComputerToSleepOnDone{"ZRPutComputerToSleepOnDone"};         // false
inline const Key QuitKalvoraAfterFinishingConversion{"ZRQuitKalvoraAfterFinishingConversion"}; // false
inline const Key RecursivelyProcessAllFolders{"ZRRecursivelyProcessAllFolders"};               // false
inline const Key RemoveFileAfterAddingToiTunes{"ZRRemoveFileAfterAddingToiTunes"};             // false
inline const Key RequiresConfirmationOfConversionCancelation{
    "ZRRequiresConfirmationOfConversionCancelation"};        // true
inline const Key SaveToSourceFolder{"KVSaveToSourceFolder"}; // true
inline const Key UsesNTSCFormat{"ZRUsesNTSCFormat"};         // false

inline const Key PresetSettings{"ZRPresetSettingsDefaults"};           // preset dictionaries by name
inline const Key DidUpdateTypeInDefaults{"KVDidUpdateTypeInDefaults"}; // false
inline const Key HistoryCenterItems{"ZRHistoryCenterItems"};           // list of history entries

/// "ZRLastUsedPreset" and the type's name in the user's language: the last used preset's name.
Key lastUsedPreset(KVMediaFileType type);
} // namespace KVPreferenceKeys

/// How much of the processor the program may use. The raw values are persisted.
enum class KVCPUSettings { high = 0, medium = 1, low = 2 };

/// The settings with a rule of their own. Any thread.
namespace KVReflectablePreferences {
/// The stored setting; without one, `medium` for whoever once chose the older "lower usage", else `high`.
KVCPUSettings cpuSettings();
/// "Library" also for a stored empty text.
QString iTunesPlaylist();
/// Reflected property name to present value, for reports. `cpuSettings` is the enumeration's raw value.
QVariantMap dictionaryRepresentation();
/// The reflected names in the order in which a report lists them.
QStringList reflectedNames();
} // namespace KVReflectablePreferences
