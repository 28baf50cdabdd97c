#include "presets/video/other/KVCropPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVText.h"
#include "presets/settings/KVNumericOption.h"
#include "presets/settings/KVSettingsWithOptions.h"
#include "video_info/media_file/KVVideoFile.h"

#include <limits>

namespace {

QString joined(const char *filter, std::initializer_list<qint64> numbers) {
    QStringList texts;
    for (const qint64 number : numbers)
        texts << QString::number(number);
    return QLatin1String(filter) + "=" + texts.join(":");
}

/// Fields that nobody could have meant stay at the end of the numbers.
qint64 difference(qint64 from, qint64 what) {
    qint64 result = 0;
    if (!__builtin_sub_overflow(from, what, &result)) return result;
    return what < 0 ? std::numeric_limits<qint64>::max() : std::numeric_limits<qint64>::min();
}

} // namespace

QStringList KVCropPreset::taskArguments(const std::shared_ptr<KVMediaFile> &file,
                                        const QUrl &outputFile) const {
    const auto video = std::dynamic_pointer_cast<KVVideoFile>(file);
    if (!video) return {};
    QStringList arguments{"-y", "-i", video->url().toLocalFile()};
    if (video->selectedVideoTrack) arguments += _pictureArguments(*video->selectedVideoTrack);
    return arguments + QStringList{"-c:a:0", "copy"} + closingArguments(outputFile);
}

/// The source's rate and a bitrate a little above the source's.
QStringList KVCropPreset::_pictureArguments(const KVVideoTrack &track) const {
    QStringList arguments{"-r"};
    if (track.framesPerSecond != 0) arguments << KVText::fixed(track.framesPerSecond, 2);
    const QString rate = QString::number(track.bitrate + 200) + "k";
    return arguments + QStringList{"-vf", _filter(track), "-b:v",
                                   KVText::integerValue(rate) == 0 ? QStringLiteral("4500k") : rate};
}

QString KVCropPreset::_filter(const KVVideoTrack &track) const {
    if (width > track.width && height > track.height)
        return joined(
            "pad", {width, height, difference(width, track.width) / 2, difference(height, track.height) / 2});
    return joined("crop", {qMin(width, difference(track.width, xOffset)),
                           qMin(height, difference(track.height, yOffset)), xOffset, yOffset});
}

QString KVCropPreset::defaultName() const {
    return KVLocalizationCenter::localized("Crop");
}

QString KVCropPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("This preset crops or pads your video.");
}

const KVPresetFields<KVCropPreset> &KVCropPreset::fields() {
    static const auto fields = KVPresetFields<KVCropPreset>()
                                   .integer("ZRCropPresetXOffset", &KVCropPreset::xOffset)
                                   .integer("ZRCropPresetYOffset", &KVCropPreset::yOffset)
                                   .integer("ZRCropPresetWidth", &KVCropPreset::width)
                                   .integer("ZRCropPresetHeight", &KVCropPreset::height);
    return fields;
}

std::shared_ptr<KVSettingsBase> KVCropPreset::settings() {
    using Pane = KVSettingsWithOptions<KVCropPreset>;
    constexpr qint64 largestOffset = 1200, largestSide = 4000;
    const auto edited = _shared<KVCropPreset>();
    const auto option = [&](const char *label, qint64 maximum, qint64 KVCropPreset::*member) {
        return std::make_shared<KVNumericOption<KVCropPreset>>(KVLocalizationCenter::localized(label), edited,
                                                               0, maximum, member);
    };
    return std::make_shared<Pane>(edited,
                                  Pane::Options{option("X Offset:", largestOffset, &KVCropPreset::xOffset),
                                                option("Y Offset:", largestOffset, &KVCropPreset::yOffset),
                                                option("Width:", largestSide, &KVCropPreset::width),
                                                option("Height:", largestSide, &KVCropPreset::height)});
}
