#include "presets/formats/video_track/KVVideoFormat.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVText.h"
#include "presets/settings/KVMultipleValueOption.h"
#include "presets/settings/KVNumericOption.h"
#include "presets/video/base/KVVideoPreset.h"
#include "util/KVWholeNumber.h"
#include "video_info/media_file/KVVideoFile.h"

#include <cmath>

KVVideoFormat::Resolution KVVideoFormat::Resolution::fromSize(const KVSize &size) {
    return {KVWholeNumber(size.width), KVWholeNumber(size.height)};
}

QStringList KVVideoFormat::arguments(const std::shared_ptr<KVMediaFile> &file,
                                     KVTrackQualitySetting quality) const {
    const auto video = std::dynamic_pointer_cast<KVVideoFile>(file);
    if (!video) KVFatalError("arguments: a video format works on video files");
    const auto rate = [&](const KVBitrateRange &range) {
        return QString::number(_bitrateForSizeType(sizeType(*video), range)) + "k";
    };

    QStringList arguments{"-c:v", codec()};
    if (const auto framesPerSecond = framerateText(*video, quality)) arguments << "-r" << *framesPerSecond;
    arguments << "-b:v" << rate(bitrateRange(quality));
    if (usesVariableBitrate()) arguments += {"-maxrate", rate(maxBitrateRange(quality)), "-bufsize", "4M"};
    return arguments + additionalArguments(*video, quality);
}

QStringList KVVideoFormat::additionalArguments(const KVVideoFile &, KVTrackQualitySetting) const {
    return {};
}

KVBitrateRange KVVideoFormat::bitrateRange(KVTrackQualitySetting) const {
    return {};
}

KVBitrateRange KVVideoFormat::maxBitrateRange(KVTrackQualitySetting) const {
    return {};
}

bool KVVideoFormat::canCopyVideoTrackOfFormat(const QString &) const {
    return false;
}

bool KVVideoFormat::canCopyVideoTrack(const KVVideoFile &file, KVTrackQualitySetting quality) const {
    if (quality == KVTrackQualitySetting::copy) return true;
    if (quality == KVTrackQualitySetting::custom) return false;
    if (file.subtitlesFileURL) return false; // Burning subtitles in takes encoding.
    if (!file.selectedVideoTrack) return false;

    const KVVideoTrack &track = *file.selectedVideoTrack;
    if (!canCopyVideoTrackOfFormat(track.format)) return false;
    if (track.width % 2 != 0 || track.height % 2 != 0) return false;
    // The source must not be heavier than the result would be.
    if (_bitrateForSizeType(sizeType(file), bitrateRange(quality)) < track.bitrate) return false;
    const auto framesPerSecond = framerateText(file, quality);
    if (!framesPerSecond) return true;
    return std::abs(KVText::doubleValue(*framesPerSecond) - track.framesPerSecond) < 0.01;
}

std::optional<QString> KVVideoFormat::framerateText(const KVVideoFile &,
                                                    KVTrackQualitySetting quality) const {
    if (quality == KVTrackQualitySetting::keepOriginal) return std::nullopt;
    if (quality == KVTrackQualitySetting::copy) KVCopyTrackFatalError();
    if (framerate == 0) return std::nullopt;
    return KVText::fixed(framerate, 2);
}

KVVideoSizeType KVVideoFormat::sizeType(const KVVideoFile &file) const {
    if (!file.selectedVideoTrack)
        KVFatalError("Fetching size type for a file with no video track. " + file.description());
    const auto [width, height] = targetResolution.value_or(
        Resolution{file.selectedVideoTrack->width, file.selectedVideoTrack->height});
    return KVVideoSizeTypes::forPixelCount(static_cast<double>(width) * static_cast<double>(height));
}

std::vector<std::shared_ptr<KVOptionRoot>>
KVVideoFormat::options(const std::shared_ptr<KVPreset> &preset) const {
    const auto edited = std::dynamic_pointer_cast<KVVideoPreset>(preset);
    if (!edited) KVFatalError("options(for:) of a video format takes a video preset");
    using Numeric = KVNumericOption<KVVideoPreset>;
    using Rates = KVMultipleValueOption<KVVideoPreset, double>;
    constexpr qint64 lowestBitrate = 200, highestBitrate = 100000;
    const auto text = [](const char *key) { return KVLocalizationCenter::localized(key); };
    const Rates::Values rates{{text("Same as source"), 0},
                              {text("PAL"), 25},
                              {text("NTSC"), 29.97},
                              {text("24 fps"), 24},
                              {text("30 fps"), 30}};
    return {std::make_shared<Numeric>(text("Bitrate:"), edited, lowestBitrate, highestBitrate,
                                      &KVVideoPreset::bitrate),
            std::make_shared<Numeric>(text("Max Bitrate:"), edited, lowestBitrate, highestBitrate,
                                      &KVVideoPreset::maxBitrate),
            std::make_shared<Rates>(text("Frame rate:"), edited, &KVVideoPreset::framerate, rates)};
}

/// The encoders take even rates.
qint64 KVVideoFormat::_bitrateForSizeType(KVVideoSizeType sizeType, const KVBitrateRange &range) {
    const double share = KVVideoSizeTypes::percentage(sizeType) / 100.0;
    const qint64 rate = range.location + KVWholeNumber(share * static_cast<double>(range.length));
    const bool isEvenOrLargest = rate % 2 == 0 || rate == std::numeric_limits<qint64>::max();
    return isEvenOrLargest ? rate : rate + 1;
}
