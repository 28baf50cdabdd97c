#include "presets/video/other/KVProResPreset.h"

#include "presets/settings/KVMultipleValueOption.h"

namespace {

using Profile = KVProResFormat::Profile;

} // namespace

std::unique_ptr<KVVideoFormat> KVProResPreset::videoFormat() const {
    auto format = KVTabulatedVideoPreset::videoFormat();
    if (auto *proRes = dynamic_cast<KVProResFormat *>(format.get())) proRes->profile = profile;
    return format;
}

const KVPresetFields<KVProResPreset> &KVProResPreset::fields() {
    static const auto fields = KVPresetFields<KVProResPreset>().enumeration(
        "KVProfile", &KVProResPreset::profile, &KVProResFormat::profileFromRawValue, Profile::none);
    return fields;
}

KVOptionList KVProResPreset::_additionalOptions() {
    using Profiles = KVMultipleValueOption<KVProResPreset, Profile>;
    const auto text = [](const char *key) { return KVLocalizationCenter::localized(key); };
    KVOptionList options = KVTabulatedVideoPreset::_additionalOptions();
    options.push_back(std::make_shared<Profiles>(text("Profile"), _shared<KVProResPreset>(),
                                                 &KVProResPreset::profile,
                                                 Profiles::Values{{text("Default"), Profile::none},
                                                                  {text("Proxy"), Profile::proxy},
                                                                  {text("LT"), Profile::lt},
                                                                  {text("Standard"), Profile::standard},
                                                                  {text("HQ"), Profile::hq}}));
    return options;
}
