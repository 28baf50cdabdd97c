#include "presets/video/other/KVHEVCPreset.h"

#include "presets/settings/KVMultipleValueOption.h"
#include "video_info/media_file/KVVideoFile.h"

#include <array>

namespace {

using ContainerFormat = KVHEVCFormat::ContainerFormat;

struct Container {
    const char *label;
    const char *pathExtension;
    const char *fileType;
    const char *subtitleFormat;
};

/// By raw value.
constexpr std::array containers{Container{"MOV", "mov", "mov", "mov_text"},
                                Container{"MKV", "mkv", "matroska", "ass"},
                                Container{"MP4", "mp4", "mp4", "mov_text"}};

const Container &container(ContainerFormat format) {
    return containers.at(static_cast<std::size_t>(format));
}

} // namespace

bool KVHEVCPreset::canCopyVideoTrack(const KVVideoFile &file) const {
    return KVTabulatedVideoPreset::canCopyVideoTrack(file) && file.selectedVideoTrack &&
           file.selectedVideoTrack->format.startsWith("hevc");
}

QString KVHEVCPreset::defaultSubtitleFormat() const {
    return container(containerFormat).subtitleFormat;
}

std::optional<QString> KVHEVCPreset::fileType() const {
    return container(containerFormat).fileType;
}

std::optional<QString> KVHEVCPreset::pathExtension() const {
    return container(containerFormat).pathExtension;
}

std::unique_ptr<KVVideoFormat> KVHEVCPreset::videoFormat() const {
    auto format = KVTabulatedVideoPreset::videoFormat();
    if (auto *hevc = dynamic_cast<KVHEVCFormat *>(format.get())) hevc->containerFormat = containerFormat;
    return format;
}

const KVPresetFields<KVHEVCPreset> &KVHEVCPreset::fields() {
    static const auto fields = KVPresetFields<KVHEVCPreset>().enumeration(
        "ContainerFormat", &KVHEVCPreset::containerFormat, &KVHEVCFormat::containerFormatFromRawValue,
        ContainerFormat::mov);
    return fields;
}

KVOptionList KVHEVCPreset::_additionalOptions() {
    using Containers = KVMultipleValueOption<KVHEVCPreset, ContainerFormat>;
    Containers::Values values;
    for (std::size_t i = 0; i < containers.size(); ++i)
        values.push_back(
            {KVLocalizationCenter::localized(containers[i].label), static_cast<ContainerFormat>(i)});
    KVOptionList options = KVTabulatedVideoPreset::_additionalOptions();
    options.push_back(std::make_shared<Containers>(KVLocalizationCenter::localized("Container Format"),
                                                   _shared<KVHEVCPreset>(), &KVHEVCPreset::containerFormat,
                                                   values));
    return options;
}
