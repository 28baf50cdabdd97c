#include "presets/KVPresetClasses.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVText.h"
#include "presets/KVPreset.h"

#include <algorithm>

namespace {

const QString modulePrefix = "Kalvora.";
const QString observationPrefix = "NSKVONotifying_"; // older versions stored it now and then

} // namespace

const std::vector<KVPresetClass> &KVPresetClasses::all() {
    static const std::vector<KVPresetClass> classes = [] {
        std::vector<KVPresetClass> rows{KVPresetClass::abstractClass<KVPreset>("KVPreset")};
        for (const auto &family : {audioPresetClasses(), videoPresetClasses(), picturePresetClasses()})
            rows.insert(rows.end(), family.begin(), family.end());
        return rows;
    }();
    return classes;
}

const KVPresetClass &KVPresetClasses::classOf(const KVPreset &preset) {
    const auto row = std::ranges::find(all(), std::type_index(typeid(preset)), &KVPresetClass::type);
    if (row == all().end()) KVFatalError("A preset class is missing from the table: " + preset.name);
    return *row;
}

QString KVPresetClasses::storedName(const KVPresetClass &presetClass) {
    return modulePrefix + QString::fromLatin1(presetClass.name.data(), qsizetype(presetClass.name.size()));
}

QString KVPresetClasses::migratedName(const QString &storedName) {
    QString name = storedName;
    if (name.startsWith("ZR")) name = modulePrefix + "KV" + name.sliced(2);
    return KVText::deletingPrefix(name, observationPrefix);
}

const KVPresetClass *KVPresetClasses::classForStoredName(const QString &name) {
    const QString migrated = migratedName(name);
    const auto row = std::ranges::find_if(all(), [&](const auto &c) { return storedName(c) == migrated; });
    return row == all().end() ? nullptr : &*row;
}
