#include "presets/settings/KVTrackQualityValues.h"

#include "kvcore/KVLocalizationCenter.h"

std::vector<KVValueOption<KVTrackQualitySetting>> KVTrackQualityValues() {
    using enum KVTrackQualitySetting;
    return {{KVLocalizationCenter::localized("Low"), low},
            {KVLocalizationCenter::localized("Medium"), medium},
            {KVLocalizationCenter::localized("High"), high},
            {KVLocalizationCenter::localized("Keep Quality"), keepOriginal},
            {KVLocalizationCenter::localized("Custom"), custom},
            {KVLocalizationCenter::localized("Copy Track"), copy}};
}
