#pragma once

#include "presets/KVPreset.h"

#include <mutex>

/// One entry of a preset menu. A separator has nothing else.
struct KVPresetMenuItem {
    bool isSeparator = false;
    QString title;
    QString toolTip;
    std::shared_ptr<KVPreset> preset;
    bool isOn = false; ///< It is the selected preset.
};

/// The list of all presets, built-in and custom, with their settings in the preferences. It is made when it
/// is first needed: every stored preset, then every built-in one that is not stored. Custom presets come
/// last; each half is sorted by name without regard to case.
///
/// A stored entry that cannot be read is skipped for this run and stays in the store as it is. The list may
/// be read from any thread; it is changed on the main thread. Notifications are posted with no lock held.
class KVPresetRegistry {
  public:
    static KVPresetRegistry &shared();

    /// A list of its own over the same preferences: what a further start of the program would see.
    KVPresetRegistry() = default;
    KVPresetRegistry(const KVPresetRegistry &) = delete;
    KVPresetRegistry &operator=(const KVPresetRegistry &) = delete;

    /// In list order.
    std::vector<std::shared_ptr<KVPreset>> allPresets();
    /// Null where there is none. The name is compared exactly.
    std::shared_ptr<KVPreset> presetNamed(const QString &name);
    /// The last used preset of the type, else the one that stands for it; the type is not `none`.
    std::shared_ptr<KVPreset> defaultPreset(KVMediaFileType type);

    /// Adds and saves it; does nothing where its name is taken.
    void registerPreset(const std::shared_ptr<KVPreset> &preset);
    /// Removes it from the list and the store. A built-in preset comes back at the next start.
    void unregisterPreset(const std::shared_ptr<KVPreset> &preset);
    /// False where any preset, this one included, has the name. The list is not sorted anew.
    bool renamePreset(const std::shared_ptr<KVPreset> &preset, const QString &newName);

    /// The enabled presets of a type; for videos also, behind a separator, those of sound.
    std::vector<KVPresetMenuItem>
    presetMenuForType(KVMediaFileType type, const std::shared_ptr<KVPreset> &selectedPreset,
                      const std::function<bool(const KVPreset &)> &customFilter = {});

    /// Writes one preset under its name; what other processes stored meanwhile stays.
    static void save(const KVPreset &preset);

  private:
    using List = std::vector<std::shared_ptr<KVPreset>>;

    void _createPresetsIfNeeded();
    void _createPresets();
    void _sortPresets();
    List _snapshot();

    static List _missingPresets(const List &stored);
    static void _storePresets(const List &missing);
    static void _removePresetFromDefaults(const QString &name);

    std::once_flag _created;
    std::mutex _mutex; ///< Guards the list.
    List _presets;
};
