#include "presets/video/other/KVMPEG2Preset.h"

#include "kvcore/KVLog.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVWholeNumber.h"
#include "video_info/media_file/KVVideoFile.h"

#include <limits>

namespace {

constexpr qint64 rasterWidth = 720;

/// The shape of the raster's pixels as fractions: a source's shape times `perHeight` is the width that a line
/// of the raster takes, and `pixel` is the shape of one pixel.
struct RasterFractions {
    const char *perHeight;
    const char *pixel;
};

RasterFractions rasterFractions(bool isNTSC, bool isWide) {
    if (isNTSC) return isWide ? RasterFractions{"33/40", "40/33"} : RasterFractions{"11/10", "10/11"};
    return isWide ? RasterFractions{"11/16", "16/11"} : RasterFractions{"11/12", "12/11"};
}

double raisedToEven(qint64 side) {
    return static_cast<double>(side + side % 2);
}

} // namespace

bool KVMPEG2Preset::isNTSC() const {
    if (framerate == 25) return false;
    return framerate == 29.97 || KVPreferences::shared().boolean(KVPreferenceKeys::UsesNTSCFormat, false);
}

qint64 KVMPEG2Preset::_rasterHeight() const {
    return isNTSC() ? 480 : 576;
}

qint64 KVMPEG2Preset::maxHeight() const {
    return allowsArbitrarySizes() ? std::numeric_limits<qint64>::max() : _rasterHeight();
}

qint64 KVMPEG2Preset::maxWidth() const {
    return allowsArbitrarySizes() ? std::numeric_limits<qint64>::max() : rasterWidth;
}

/// The part of the raster that the picture fills; the filter pads the rest.
KVSize KVMPEG2Preset::size(const KVVideoFile &file) const {
    // Not fitted into any limits, so not what the direct base answers.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    if (allowsArbitrarySizes() || !file.selectedVideoTrack) return KVVideoPreset::size(file);
    constexpr double widestOfFourByThree = 1.5990000000000002;

    KVLog(isNTSC() ? "Is NTSC" : "Is PAL");
    const auto height = static_cast<double>(_rasterHeight());
    const double sourceAspect = static_cast<double>(file.selectedVideoTrack->width) /
                                static_cast<double>(file.selectedVideoTrack->height);
    const double displayAspect = sourceAspect > widestOfFourByThree ? 16.0 / 9.0 : 4.0 / 3.0;
    const double pixelAspect = displayAspect * height / rasterWidth;
    const qint64 fittedHeight = KVWholeNumber(rasterWidth * pixelAspect / sourceAspect);
    if (_rasterHeight() < fittedHeight)
        return {raisedToEven(KVWholeNumber(sourceAspect * height / pixelAspect)),
                raisedToEven(_rasterHeight())};
    return {raisedToEven(rasterWidth), raisedToEven(fittedHeight)};
}

QStringList KVMPEG2Preset::sizeArguments(const KVVideoFile &file, bool allowCopying) const {
    if (allowsArbitrarySizes()) return KVTabulatedVideoPreset::sizeArguments(file, allowCopying);
    if (!file.selectedVideoTrack) return {};
    constexpr double widestOfOldPictures = 1.3433333333333333; // Not the threshold of the size, on purpose.

    const double sourceAspect = static_cast<double>(file.selectedVideoTrack->width) /
                                static_cast<double>(file.selectedVideoTrack->height);
    const auto [perHeight, pixel] = rasterFractions(isNTSC(), sourceAspect > widestOfOldPictures);
    const QString filter =
        "scale='w=min(720,trunc((%1*%2*dar)/2+0.5)*2):h=min(%1,trunc((720*%3/dar)/2+0.5)*2)',"
        "pad='w=720:h=%1:x=(ow-iw)/2:y=(oh-ih)/2',setsar='r=%3'";
    return {"-filter:v", filter.arg(QString::number(_rasterHeight()), perHeight, pixel)};
}
