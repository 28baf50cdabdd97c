#include "presets/video/base/KVSizeRestrictedVideoPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/settings/KVSizeOption.h"
#include "util/KVWholeNumber.h"
#include "video_info/media_file/KVVideoFile.h"

namespace {

using Preset = KVSizeRestrictedVideoPreset;

double roundedDownToEven(double side) {
    return static_cast<double>(KVWholeNumber(side) & ~qint64(1));
}

} // namespace

KVSize KVSizeRestrictedVideoPreset::size(const KVVideoFile &file) const {
    KVSize result = KVVideoPreset::size(file);
    if (const auto limits = _limits(); limits && file.selectedVideoTrack) {
        const KVVideoTrack &track = *file.selectedVideoTrack;
        if (track.height >= limits->height || track.width >= limits->width || allowsScalingUp()) {
            const KVSize maximum{static_cast<double>(limits->width), static_cast<double>(limits->height)};
            result = KVSizeFitting::fitInto(result, maximum, allowsScalingUp());
        }
    }
    return {roundedDownToEven(result.width), roundedDownToEven(result.height)};
}

std::optional<KVVideoFormat::Resolution> KVSizeRestrictedVideoPreset::_limits() const {
    KVVideoFormat::Resolution limits = videoFormat()->maximumResolution();
    if (hasSizeConstrains())
        limits = {qMin(limits.width, maxWidth()), qMin(limits.height, maxHeight())};
    else if (limits == KVVideoFormat::Resolution::unlimited())
        return std::nullopt;
    // A constraint that is switched on with an empty field has no effect.
    if (limits.width == 0 || limits.height == 0) return std::nullopt;
    return limits;
}

bool KVSizeRestrictedVideoPreset::canCopyVideoTrack(const KVVideoFile &file) const {
    if (!KVVideoPreset::canCopyVideoTrack(file)) return false;
    return !file.selectedVideoTrack || !_exceedsLimits(*file.selectedVideoTrack);
}

bool KVSizeRestrictedVideoPreset::_exceedsLimits(const KVVideoTrack &track) const {
    return hasSizeConstrains() && (track.width > maxWidth() || track.height > maxHeight());
}

QStringList KVSizeRestrictedVideoPreset::sizeArguments(const KVVideoFile &file, bool allowCopying) const {
    if (!file.selectedVideoTrack) return {};
    if (allowCopying && !_losesRotation(file) && !_exceedsLimits(*file.selectedVideoTrack) &&
        videoFormat()->canCopyVideoTrack(file, videoTrackQuality))
        return {};
    const auto [width, height] = KVVideoFormat::Resolution::fromSize(size(file));
    if (width <= 0 || height <= 0) return {};
    const QString w = QString::number(width), h = QString::number(height);
    return {"-s", w + "x" + h, "-aspect", w + ":" + h};
}

std::unique_ptr<KVVideoFormat> KVSizeRestrictedVideoPreset::videoFormat() const {
    auto format = KVVideoPreset::videoFormat();
    if (hasSizeConstrains()) format->targetResolution = KVVideoFormat::Resolution{maxWidth(), maxHeight()};
    return format;
}

const KVPresetFields<KVSizeRestrictedVideoPreset> &KVSizeRestrictedVideoPreset::fields() {
    static const auto fields =
        KVPresetFields<Preset>()
            .boolean("ZRHasSizeConstrains", &Preset::hasSizeConstrains, &Preset::setHasSizeConstrains)
            .integer("ZRMaxHeight", &Preset::maxHeight, &Preset::setMaxHeight)
            .integer("ZRMaxWidth", &Preset::maxWidth, &Preset::setMaxWidth);
    return fields;
}

KVOptionList KVSizeRestrictedVideoPreset::_additionalOptions() {
    KVOptionList options = KVVideoPreset::_additionalOptions();
    if (!videoFormat()->doesNotAllowCustomSize) options.push_back(_sizeOption());
    return options;
}

std::shared_ptr<KVOptionRoot> KVSizeRestrictedVideoPreset::_sizeOption() {
    return std::make_shared<KVSizeOption<Preset>>(KVLocalizationCenter::localized("Constrain size"),
                                                  _shared<Preset>());
}
