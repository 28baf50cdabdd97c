#include "presets/KVPresetClasses.h"
#include "presets/picture/KVBMPPreset.h"
#include "presets/picture/KVGIFPreset.h"
#include "presets/picture/KVJPEGPreset.h"
#include "presets/picture/KVPNGPreset.h"
#include "presets/picture/KVTIFFPreset.h"

std::vector<KVPresetClass> KVPresetClasses::picturePresetClasses() {
    return {
        KVPresetClass::abstractClass<KVPicturePreset>("KVPicturePreset"),
        KVPresetClass::abstractClass<KVNSImageBasedPreset>("KVNSImageBasedPreset"),
        KVPresetClass::concreteClass<KVBMPPreset>("KVBMPPreset"),
        KVPresetClass::concreteClass<KVGIFPreset>("KVGIFPreset"),
        KVPresetClass::concreteClass<KVJPEGPreset>("KVJPEGPreset"),
        KVPresetClass::concreteClass<KVPNGPreset>("KVPNGPreset"),
        KVPresetClass::concreteClass<KVTIFFPreset>("KVTIFFPreset"),
    };
}
