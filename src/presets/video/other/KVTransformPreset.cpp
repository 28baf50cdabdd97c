#include "presets/video/other/KVTransformPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/settings/KVMultipleValueOption.h"
#include "presets/settings/KVSettingsWithOptions.h"
#include "video_info/media_file/KVVideoFile.h"

#include <array>

namespace {

struct Transform {
    const char *label;
    const char *filter;
};

/// By raw value.
constexpr std::array transforms{Transform{"Rotate 90º", "transpose=1"},
                                Transform{"Rotate 90º CCW", "transpose=2"},
                                Transform{"Horizontal Flip", "hflip"}, Transform{"Vertical Flip", "vflip"}};

} // namespace

std::optional<KVTransformType> KVTransformTypeFromRawValue(qint64 rawValue) {
    if (rawValue < 0 || rawValue >= static_cast<qint64>(transforms.size())) return std::nullopt;
    return static_cast<KVTransformType>(rawValue);
}

QStringList KVTransformPreset::taskArguments(const std::shared_ptr<KVMediaFile> &file,
                                             const QUrl &outputFile) const {
    if (!std::dynamic_pointer_cast<KVVideoFile>(file)) return {};
    const Transform &transform = transforms.at(static_cast<std::size_t>(transformType));
    // clang-format off
    return {"-y", "-i", file->url().toLocalFile(), "-vf", transform.filter,
            "-max_muxing_queue_size", "40000", "-c:a:0", "copy", outputFile.toLocalFile()};
    // clang-format on
}

QString KVTransformPreset::defaultName() const {
    return KVLocalizationCenter::localized("Transform Preset");
}

QString KVTransformPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("Rotates or flips video.");
}

const KVPresetFields<KVTransformPreset> &KVTransformPreset::fields() {
    static const auto fields = KVPresetFields<KVTransformPreset>().enumeration(
        "ZRTransformType", &KVTransformPreset::transformType, &KVTransformTypeFromRawValue,
        KVTransformType::rotate90DegreesClockwise);
    return fields;
}

std::shared_ptr<KVSettingsBase> KVTransformPreset::settings() {
    using Pane = KVSettingsWithOptions<KVTransformPreset>;
    using Types = KVMultipleValueOption<KVTransformPreset, KVTransformType>;
    Types::Values values;
    for (std::size_t i = 0; i < transforms.size(); ++i)
        values.push_back(
            {KVLocalizationCenter::localized(transforms[i].label), static_cast<KVTransformType>(i)});
    const auto edited = _shared<KVTransformPreset>();
    return std::make_shared<Pane>(
        edited, Pane::Options{std::make_shared<Types>(KVLocalizationCenter::localized("Transform type:"),
                                                      edited, &KVTransformPreset::transformType, values)});
}
