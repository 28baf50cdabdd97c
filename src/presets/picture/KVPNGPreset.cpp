#include "presets/picture/KVPNGPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/picture/KVPictureSettings.h"

const KVPresetFields<KVPNGPreset> &KVPNGPreset::fields() {
    static const auto all =
        KVPresetFields<KVPNGPreset>().boolean("ZRPNGInterlaced", &KVPNGPreset::isInterlaced);
    return all;
}

QString KVPNGPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("PNG format.");
}

std::shared_ptr<KVSettingsBase> KVPNGPreset::settings() {
    const auto preset = _shared<KVPNGPreset>();
    const auto interlaced = std::make_shared<KVBooleanOption<KVPNGPreset>>(
        KVLocalizationCenter::localized("Interlaced"), preset, &KVPNGPreset::isInterlaced);
    return KVPictureSettings(preset, {interlaced});
}
