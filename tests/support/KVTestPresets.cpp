#include "support/KVTestPresets.h"

#include "presets/KVPresetClasses.h"

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

QStringList KVTestPresets::argumentsOf(const KVPreset &preset, const KVMediaFileList &files) {
    const QString extension = preset.pathExtension().value_or("mkv");
    return preset.argumentsForFiles(files, QUrl::fromLocalFile("/out/clip." + extension));
}
