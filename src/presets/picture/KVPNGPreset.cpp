#include "presets/picture/KVPNGPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/KVPresetFields.h"
#include "presets/picture/KVPictureSettings.h"

namespace {

const KVPresetFields<KVPNGPreset> &fields() {
    static const auto all =
        KVPresetFields<KVPNGPreset>().boolean("ZRPNGInterlaced", &KVPNGPreset::isInterlaced);
    return all;
}

} // namespace

QVariantMap KVPNGPreset::dictionaryRepresentation() const {
    QVariantMap dictionary = KVNSImageBasedPreset::dictionaryRepresentation();
    fields().save(*this, dictionary);
    return dictionary;
}

void KVPNGPreset::loadFromDictionary(const QVariantMap &dictionary) {
    KVNSImageBasedPreset::loadFromDictionary(dictionary);
    fields().load(*this, dictionary);
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
