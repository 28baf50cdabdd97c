#include "presets/picture/KVBMPPreset.h"

#include "kvcore/KVLocalizationCenter.h"

QString KVBMPPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("BMP format.");
}
