#include "support/KVTestPresets.h"

#include "presets/KVPresetClasses.h"
#include "presets/settings/KVSettingsBase.h"

#include <gtest/gtest.h>

std::shared_ptr<KVPreset> KVTestPresets::make(const QString &className, const QVariantMap &settings) {
    const KVPresetClass *presetClass = KVPresetClasses::classForStoredName("Kalvora." + className);
    if (!presetClass || !presetClass->make) {
        ADD_FAILURE() << "no class " << className.toStdString();
        return nullptr;
    }
    const auto preset = presetClass->make();
    QVariantMap dictionary = preset->dictionaryRepresentation();
    dictionary.insert(settings);
    preset->loadFromDictionary(dictionary);
    return preset;
}

QStringList KVTestPresets::labelsOf(const KVSettingsBase &pane) {
    QStringList labels;
    for (const auto &option : pane.visibleOptions())
        labels << option->name;
    return labels;
}

std::shared_ptr<KVOptionRoot> KVTestPresets::optionOf(const KVSettingsBase &pane, const QString &label) {
    for (const auto &option : pane.visibleOptions())
        if (option->name == label) return option;
    ADD_FAILURE() << "no option " << label.toStdString();
    return nullptr;
}

QStringList KVTestPresets::argumentsOf(const KVPreset &preset, const KVMediaFileList &files) {
    const QString extension = preset.pathExtension().value_or("mkv");
    return preset.argumentsForFiles(files, QUrl::fromLocalFile("/out/clip." + extension));
}
