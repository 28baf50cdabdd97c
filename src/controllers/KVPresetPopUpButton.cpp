#include "controllers/KVPresetPopUpButton.h"

#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVUserQuestions.h"
#include "queues/KVRowEdits.h"
#include "util/KVPreferenceKeys.h"

KVPresetPopUpButton::KVPresetPopUpButton(KVMediaFileType presetType)
    : _presetType(presetType) {
    auto &center = KVNotificationCenter::defaultCenter();
    _listDidChange = center.addObserver<KVPreset>(KVPresetListDidChangeNotification,
                                                  [this](const auto &) { _fillInPresets(); });
    _wasAffected = center.addObserver<void>(ConversionQueueWasAffectedByAppleScript,
                                            [this](const auto &) { presetChangedRemotely(); });
    _fillInPresets();
}

bool KVPresetPopUpButton::choosePreset(const std::shared_ptr<KVPreset> &preset) {
    if (KVRowEdits::breaksMerges(*KVConversionQueue::queue(_presetType), *preset)) {
        const auto localized = [](const char *key) { return KVLocalizationCenter::localized(key); };
        KVUserQuestion::runModalOnMainThread(KVAlert{
            .messageText =
                localized("This preset doesn't support conversions that merge multiple files together. "
                          "Please select another preset."),
            .informativeText =
                localized("There are conversions waiting to start that merge multiple files together. "
                          "Not all presets support this."),
            .buttons = {localized("OK")}});
        return false;
    }
    _remember(preset);
    KVConversionQueue::queue(_presetType)->setSelectedPreset(preset);
    _select(preset);
    return true;
}

void KVPresetPopUpButton::presetChangedRemotely() {
    auto preset = KVConversionQueue::queue(_presetType)->selectedPreset();
    if (!preset) preset = KVPreset::defaultPreset(_presetType);
    _remember(preset);
    _select(preset);
}

void KVPresetPopUpButton::_fillInPresets() {
    const QString name =
        KVPreferences::shared().value(KVPreferenceKeys::lastUsedPreset(_presetType)).toString();
    auto preset = KVPreset::presetNamed(name);
    if (!preset) preset = KVPreset::defaultPreset(_presetType);
    _select(preset);
    KVConversionQueue::queue(_presetType)->setSelectedPreset(preset);
}

void KVPresetPopUpButton::_select(const std::shared_ptr<KVPreset> &preset) {
    _selectedPreset = preset;
    _items = KVPreset::presetMenuForType(_presetType, preset);
    if (_observer) _observer();
}

void KVPresetPopUpButton::_remember(const std::shared_ptr<KVPreset> &preset) {
    KVPreferences::shared().setValue(preset->name, KVPreferenceKeys::lastUsedPreset(_presetType));
}
