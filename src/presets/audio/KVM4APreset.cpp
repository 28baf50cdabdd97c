#include "presets/audio/KVM4APreset.h"

#include "kvcore/KVLocalizationCenter.h"

QString KVM4APreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Audio: M4A (AAC)");
}
