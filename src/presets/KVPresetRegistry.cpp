#include "presets/KVPresetRegistry.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLog.h"
#include "presets/KVPresetClasses.h"
#include "presets/KVStoredValue.h"
#include "util/KVPreferenceKeys.h"

#include <algorithm>

namespace {

namespace Keys = KVPreferenceKeys;

void logNameClash(const QString &name) {
    KVLog("Preset with name " + name + " already exists!");
}

/// Alters the stored dictionary as it is on disk now, so that another process loses nothing.
void updateStored(const std::function<void(QVariantMap &stored)> &change) {
    KVPreferences::shared().update(Keys::PresetSettings, [&](const QVariant &current) {
        QVariantMap stored = current.toMap();
        change(stored);
        return QVariant(stored);
    });
}

/// The class of a stored entry; null, and a log line where there is something to tell, for an entry that
/// cannot be read.
const KVPresetClass *classOfEntry(const QVariantMap &entry) {
    const auto storedName = KVStoredValue::text(entry.value("ZRPresetClass"));
    if (!storedName) return nullptr;
    const KVPresetClass *found = KVPresetClasses::classForStoredName(*storedName);
    if (found && !found->isAbstractPreset()) return found;
    KVLog("Cannot find class " + KVPresetClasses::migratedName(*storedName));
    return nullptr;
}

/// A preset of each entry that can be read.
std::vector<std::shared_ptr<KVPreset>> presetsIn(const QVariantMap &stored) {
    std::vector<std::shared_ptr<KVPreset>> presets;
    for (const QVariant &value : stored) {
        const QVariantMap entry = value.toMap(); // empty for anything else than a dictionary
        if (const KVPresetClass *presetClass = classOfEntry(entry))
            presets.push_back(KVPreset::fromDictionary(*presetClass, entry));
    }
    return presets;
}

QString standardPresetName(KVMediaFileType type) {
    switch (type) {
    case KVMediaFileType::audio:
        return "MP3";
    case KVMediaFileType::video:
        return "MP4";
    case KVMediaFileType::picture:
        return "JPEG";
    case KVMediaFileType::dvd:
        return "DVD";
    case KVMediaFileType::none:
        break;
    }
    KVFatalError("Can't be getting preset for .none!");
}

bool sortsBefore(const std::shared_ptr<KVPreset> &a, const std::shared_ptr<KVPreset> &b) {
    if (a->isCustom != b->isCustom) return b->isCustom;
    return a->name.compare(b->name, Qt::CaseInsensitive) < 0;
}

} // namespace

KVPresetRegistry &KVPresetRegistry::shared() {
    static KVPresetRegistry registry;
    return registry;
}

std::vector<std::shared_ptr<KVPreset>> KVPresetRegistry::allPresets() {
    _createPresetsIfNeeded();
    return _snapshot();
}

std::shared_ptr<KVPreset> KVPresetRegistry::presetNamed(const QString &name) {
    const List presets = allPresets();
    const auto found = std::ranges::find(presets, name, [](const auto &preset) { return preset->name; });
    return found == presets.end() ? nullptr : *found;
}

std::shared_ptr<KVPreset> KVPresetRegistry::defaultPreset(KVMediaFileType type) {
    const auto lastUsed = KVStoredValue::text(KVPreferences::shared().value(Keys::lastUsedPreset(type)));
    if (lastUsed)
        if (auto preset = presetNamed(*lastUsed)) return preset;
    return presetNamed(standardPresetName(type));
}

void KVPresetRegistry::registerPreset(const std::shared_ptr<KVPreset> &preset) {
    if (presetNamed(preset->name)) return logNameClash(preset->name);
    {
        const std::scoped_lock lock(_mutex);
        _presets.push_back(preset);
        _sortPresets();
    }
    KVNotificationCenter::defaultCenter().post(KVPresetListDidChangeNotification, preset);
    preset->save();
}

void KVPresetRegistry::unregisterPreset(const std::shared_ptr<KVPreset> &preset) {
    _removePresetFromDefaults(preset->name);
    preset->isDeleted = true;
    {
        const std::scoped_lock lock(_mutex);
        if (const auto found = std::ranges::find(_presets, preset); found != _presets.end())
            _presets.erase(found);
    }
    KVNotificationCenter::defaultCenter().post(KVPresetListDidChangeNotification, preset);
}

bool KVPresetRegistry::renamePreset(const std::shared_ptr<KVPreset> &preset, const QString &newName) {
    if (presetNamed(newName)) {
        logNameClash(newName);
        return false;
    }
    const QString oldName = std::exchange(preset->name, newName);
    preset->save();
    _removePresetFromDefaults(oldName);
    KVNotificationCenter::defaultCenter().post(KVPresetListDidChangeNotification, preset);
    return true;
}

std::vector<KVPresetMenuItem>
KVPresetRegistry::presetMenuForType(KVMediaFileType type, const std::shared_ptr<KVPreset> &selectedPreset,
                                    const std::function<bool(const KVPreset &)> &customFilter) {
    const auto original = selectedPreset ? selectedPreset->original() : nullptr; // of a running row
    const auto selected = original ? original : selectedPreset;
    std::vector<KVPresetMenuItem> menu;
    const auto appendPresetsOf = [&](KVMediaFileType wanted) {
        for (const auto &preset : allPresets())
            if (preset->presetType() == wanted && preset->isEnabled &&
                (!customFilter || customFilter(*preset)))
                menu.push_back({.title = preset->name,
                                .toolTip = preset->localizedFormatDescription(),
                                .preset = preset,
                                .isOn = preset == selected});
    };
    appendPresetsOf(type);
    if (type == KVMediaFileType::video) { // a video can become a file of its sound
        menu.emplace_back().isSeparator = true;
        appendPresetsOf(KVMediaFileType::audio);
    }
    return menu;
}

void KVPresetRegistry::save(const KVPreset &preset) {
    updateStored([&](QVariantMap &stored) { stored.insert(preset.name, preset.dictionaryRepresentation()); });
}

void KVPresetRegistry::_createPresetsIfNeeded() {
    std::call_once(_created, [this] { _createPresets(); });
}

void KVPresetRegistry::_createPresets() {
    const List stored = presetsIn(KVPreferences::shared().value(Keys::PresetSettings).toMap());
    const List missing = _missingPresets(stored);
    {
        const std::scoped_lock lock(_mutex);
        _presets = stored;
        _presets.insert(_presets.end(), missing.begin(), missing.end());
        _sortPresets();
    }
    _storePresets(missing);
}

void KVPresetRegistry::_sortPresets() {
    std::ranges::stable_sort(_presets, sortsBefore);
}

KVPresetRegistry::List KVPresetRegistry::_snapshot() {
    const std::scoped_lock lock(_mutex);
    return _presets;
}

KVPresetRegistry::List KVPresetRegistry::_missingPresets(const List &stored) {
    List missing;
    for (const KVPresetClass &presetClass : KVPresetClasses::all()) {
        if (presetClass.isAbstractPreset()) continue;
        const auto builtIn = presetClass.make();
        const bool isStored = std::ranges::any_of(stored, [&](const auto &preset) {
            return presetClass.isInstance(*preset) && preset->name == builtIn->name;
        });
        if (!isStored) missing.push_back(builtIn);
    }
    return missing;
}

/// Stores the missing presets and, the first time, all of them, as entries of older versions lack their type.
/// Works on what is stored by now; what stands under a missing preset's name and cannot be read stays.
void KVPresetRegistry::_storePresets(const List &missing) {
    const bool isFirstTime = !KVPreferences::shared().boolean(Keys::DidUpdateTypeInDefaults, false);
    if (!isFirstTime && missing.empty()) return;

    updateStored([&](QVariantMap &stored) {
        if (isFirstTime)
            for (const auto &preset : presetsIn(stored))
                stored.insert(preset->name, preset->dictionaryRepresentation());
        for (const auto &preset : missing)
            if (!stored.contains(preset->name))
                stored.insert(preset->name, preset->dictionaryRepresentation());
    });
    // The mark comes last: without it all of this happens once more, which changes nothing.
    if (isFirstTime) KVPreferences::shared().setBoolean(true, Keys::DidUpdateTypeInDefaults);
}

void KVPresetRegistry::_removePresetFromDefaults(const QString &name) {
    KVPreferences::shared().update(Keys::PresetSettings, [&](const QVariant &current) {
        if (current.typeId() != QMetaType::QVariantMap) return current;
        QVariantMap stored = current.toMap();
        stored.remove(name);
        return QVariant(stored);
    });
}
