#include "presets/picture/KVTIFFPreset.h"

#include "kvcore/KVLocalizationCenter.h"

QString KVTIFFPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("TIFF format.");
}
