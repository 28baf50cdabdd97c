#include "presets/video/other/KVGIFAnimationPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/settings/KVSettingsWithOptions.h"
#include "presets/settings/KVSizeOption.h"
#include "video_info/media_file/KVVideoFile.h"

QString KVGIFAnimationPreset::defaultName() const {
    return KVLocalizationCenter::localized("GIF Animation");
}

QString KVGIFAnimationPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("This preset creates an animated GIF file.");
}

QStringList KVGIFAnimationPreset::taskArguments(const std::shared_ptr<KVMediaFile> &file,
                                                const QUrl &outputFile) const {
    const auto video = std::dynamic_pointer_cast<KVVideoFile>(file);
    if (!video) return {};
    // clang-format off
    return QStringList{"-y", "-i", video->url().toLocalFile()} + sizeArguments(*video, false) +
           QStringList{"-gifflags", "+transdiff", "-vf", "scale=-1:-1:sws_dither=ed",
                       "-max_muxing_queue_size", "40000", outputFile.toLocalFile()};
    // clang-format on
}

std::shared_ptr<KVSettingsBase> KVGIFAnimationPreset::settings() {
    using Pane = KVSettingsWithOptions<KVGIFAnimationPreset>;
    const auto edited = _shared<KVGIFAnimationPreset>();
    return std::make_shared<Pane>(edited, Pane::Options{std::make_shared<KVSizeOption<KVGIFAnimationPreset>>(
                                              KVLocalizationCenter::localized("Constrain size"), edited)});
}
