#include "presets/picture/KVJPEGPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/picture/KVPictureSettings.h"

const KVPresetFields<KVJPEGPreset> &KVJPEGPreset::fields() {
    static const auto all =
        KVPresetFields<KVJPEGPreset>().integer("ZRJPEGCompression", &KVJPEGPreset::compression, 95);
    return all;
}

QString KVJPEGPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("JPEG format with %i%% compression.", {compression});
}

QVariantMap KVJPEGPreset::properties() const {
    return {{NSImageCompressionFactor, static_cast<double>(compression) / 100}};
}

std::shared_ptr<KVSettingsBase> KVJPEGPreset::settings() {
    const auto preset = _shared<KVJPEGPreset>();
    const auto quality = std::make_shared<KVNumericOption<KVJPEGPreset>>(
        KVLocalizationCenter::localized("Compression (%):"), preset, 1, 100, &KVJPEGPreset::compression);
    return KVPictureSettings(preset, {quality});
}
