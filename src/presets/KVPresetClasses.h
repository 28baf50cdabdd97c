#pragma once

#include "presets/KVPresetClass.h"

#include <QString>

#include <vector>

/// The table of all preset classes, one row for each class, abstract ones included. Menus, the registry and
/// the tests walk it. Any thread.
namespace KVPresetClasses {

/// Every class, family by family.
const std::vector<KVPresetClass> &all();

/// The row of the object's own class; a class without a row is a programming error.
const KVPresetClass &classOf(const KVPreset &preset);

/// "Kalvora." and the class's name, as it is stored.
QString storedName(const KVPresetClass &presetClass);

/// The class of a stored name, the forms of older versions included; null where there is none.
const KVPresetClass *classForStoredName(const QString &storedName);

/// The stored name in its present form: "ZRMP4Preset" gives "Kalvora.KVMP4Preset".
QString migratedName(const QString &storedName);

/// The families, each in a file of its own.
std::vector<KVPresetClass> audioPresetClasses();
std::vector<KVPresetClass> videoPresetClasses();
std::vector<KVPresetClass> picturePresetClasses();

} // namespace KVPresetClasses
