#include "presets/picture/KVPicturePreset.h"

#include "kvcore/KVFatalError.h"

KVResult<QUrl> KVPicturePreset::convertPictureFile(const std::shared_ptr<KVPictureFile> &, const QUrl &,
                                                   const std::stop_token &) const {
    KVFatalError("convertPictureFile(_:toURL:)");
}

KVSize KVPicturePreset::scaledSize(const KVSize &size) const {
    return _sizeWithinLimits(_sizeByPercentage(size));
}

KVSize KVPicturePreset::_sizeByPercentage(const KVSize &size) const {
    if (!hasPercentageScaling || _scalingPercentage < 1 || _scalingPercentage >= 2000) return size;
    const auto percentage = static_cast<double>(_scalingPercentage);
    return KVSizeFitting::integral({size.width * percentage / 100, size.height * percentage / 100});
}

KVSize KVPicturePreset::_sizeWithinLimits(const KVSize &size) const {
    if (!_hasSizeConstrains || _maxWidth <= 0 || _maxHeight <= 0) return size;
    const KVSize maximum{static_cast<double>(_maxWidth), static_cast<double>(_maxHeight)};
    const bool isWithin = size.width <= maximum.width && size.height <= maximum.height;
    if (isWithin && !_allowsScalingUp) return size;
    return KVSizeFitting::fitInto(size, maximum, _allowsScalingUp);
}

const KVPresetFields<KVPicturePreset> &KVPicturePreset::fields() {
    using Preset = KVPicturePreset;
    static const auto all =
        KVPresetFields<Preset>()
            .boolean("ZRAlsoScaleUp", &Preset::allowsScalingUp, &Preset::setAllowsScalingUp)
            .boolean("ZRHasPercentageScaling", &Preset::hasPercentageScaling)
            .boolean("ZRHasSizeConstrains", &Preset::hasSizeConstrains, &Preset::setHasSizeConstrains)
            .integer("ZRMaxHeight", &Preset::maxHeight, &Preset::setMaxHeight)
            .integer("ZRMaxWidth", &Preset::maxWidth, &Preset::setMaxWidth)
            .integer("ZRPercentageScaling", &Preset::scalingPercentage, &Preset::setScalingPercentage);
    return all;
}
