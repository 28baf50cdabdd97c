#include "presets/video/other/KVDVDPreset.h"

QString KVDVDPreset::defaultName() const {
    return KVLocalizationCenter::localized("DVD");
}

QString KVDVDPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Creates an ISO file that you can burn right away.");
}

std::unique_ptr<KVVideoFormat> KVDVDPreset::videoFormat() const {
    auto format = KVMPEG2Preset::videoFormat();
    if (auto *mpeg2 = dynamic_cast<KVMPEG2Format *>(format.get())) mpeg2->isDVDTarget = true;
    return format;
}
