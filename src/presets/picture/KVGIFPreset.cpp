#include "presets/picture/KVGIFPreset.h"

#include "kvcore/KVLocalizationCenter.h"

QString KVGIFPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("GIF format.");
}
