#include "presets/formats/video_track/variable_bitrate/KVH264Format.h"

#include "tasks/KVHardwareAcceleration.h"
#include "util/KVWholeNumber.h"

namespace {

/// Kilobits per second, {location, length}, in the order low, medium, high, keep quality.
constexpr KVBitrateRanges bitrates{{500, 2000}, {600, 2500}, {800, 3000}, {900, 6000}};
constexpr KVBitrateRanges maxBitrates{{700, 2750}, {800, 3500}, {1000, 5000}, {1200, 8000}};

/// The hardware encoder takes no lower level.
constexpr qint64 lowestHardwareLevel = 30;

} // namespace

QString KVH264Format::codec() const {
    const bool usesHardware = level >= lowestHardwareLevel && isHardwareAccelerationEnabled &&
                              KVHardwareAcceleration::shared().isHardwareAccelerationAvailable();
    return usesHardware ? QStringLiteral("h264_videotoolbox") : QStringLiteral("libx264");
}

QStringList KVH264Format::additionalArguments(const KVVideoFile &, KVTrackQualitySetting) const {
    const auto number = [](qint64 value) { return QString::number(value); };
    // clang-format off
    QStringList arguments{
        "-allow_sw", "1", "-copyts", "-movflags", "+faststart",
        "-qmin", number(qmin), "-qmax", number(qmax),
        "-flags", flags, "-g", number(groupOfPictureSize), "-i_qfactor", "0.71",
        "-refs", number(references), "-trellis", number(trellis), "-coder", coder,
        "-bf", number(numberOfBFrames), "-bt", "256k",
        "-keyint_min", "250", "-sc_threshold", "40",
        "-me_method", meMethod, "-me_range", number(meRange),
        "-level", number(level), "-profile", nameOfProfile(profile)};
    // clang-format on
    if (quantizerDifferenceBetweenFrames != 0)
        arguments << "-qdiff" << number(quantizerDifferenceBetweenFrames);
    return arguments + additionalH264Options;
}

KVBitrateRange KVH264Format::bitrateRange(KVTrackQualitySetting quality) const {
    return _multiplied(bitrates.at(quality, bitrate, "bitrateRangeForQuality"));
}

KVBitrateRange KVH264Format::maxBitrateRange(KVTrackQualitySetting quality) const {
    return _multiplied(maxBitrates.at(quality, maxBitrate, "maxBitrateRangeForQuality"));
}

bool KVH264Format::canCopyVideoTrackOfFormat(const QString &format) const {
    return format.startsWith(QLatin1String("h264"));
}

QString KVH264Format::nameOfProfile(Profile profile) {
    switch (profile) {
    case Profile::baseline:
        return QStringLiteral("baseline");
    case Profile::main:
        return QStringLiteral("main");
    case Profile::high:
        break;
    }
    return QStringLiteral("high");
}

KVBitrateRange KVH264Format::_multiplied(const KVBitrateRange &range) const {
    const auto multiplied = [this](qint64 number) {
        return KVWholeNumber(static_cast<double>(number) * bitrateMultiplier);
    };
    return {multiplied(range.location), multiplied(range.length)};
}
