#include "presets/video/base/KVVideoPreset.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVFileManager.h"
#include "presets/settings/KVVideoQualityBasedFormatSettings.h"
#include "presets/video/base/KVStitchingFilter.h"
#include "presets/video/base/KVSubtitleFonts.h"
#include "presets/video/base/KVSubtitlesFile.h"
#include "util/KVThreadCount.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

/// Subtitles of a single file.
struct KVVideoPreset::SubtitleArguments {
    QStringList input;   ///< A further input, behind the video's.
    QStringList pending; ///< What stands behind the audio.
};

struct KVVideoPreset::AudioArguments {
    QStringList arguments;
    bool hasStereoTrack = false; ///< A second track stands aside the first.
};

namespace {

/// All files as video files; none where one is something else.
KVVideoFileList videoFiles(const KVMediaFileList &files) {
    KVVideoFileList videos;
    for (const auto &file : files)
        videos.append(std::dynamic_pointer_cast<KVVideoFile>(file));
    return videos.contains(nullptr) ? KVVideoFileList() : videos;
}

/// The file of the smallest picture: the lowest, and among those the narrowest. Ties keep the first.
std::shared_ptr<KVVideoFile> referenceFile(const KVVideoFileList &files) {
    if (files.size() == 1) return files.first();
    for (const auto &file : files)
        if (!file->selectedVideoTrack) KVFatalError("A video has no selected track. " + file->description());
    return *std::ranges::min_element(files, {}, [](const auto &file) {
        return std::pair(file->selectedVideoTrack->height, file->selectedVideoTrack->width);
    });
}

QString pathOf(const KVVideoFile &file) {
    return file.url().toLocalFile();
}

QStringList mapping(qint64 trackNumber) {
    return {"-map", "0:" + QString::number(trackNumber)};
}

} // namespace

QStringList KVVideoPreset::taskArgumentsForFiles(const KVMediaFileList &files, const QUrl &outputFile) const {
    const KVVideoFileList videos = videoFiles(files);
    if (videos.isEmpty() || !refusalOfFiles(files).isEmpty()) return {};
    const auto &first = videos.first();
    const auto reference = referenceFile(videos);
    const bool isStitched = videos.size() > 1;

    QStringList arguments{"-y"};
    if (QFileInfo(pathOf(*first)).suffix().toLower() == "mov") arguments += {"-enable_drefs", "1"};

    SubtitleArguments subtitles{{}, {"-sn"}};
    if (isStitched) {
        arguments += _stitchingArguments(videos, *reference);
    } else {
        subtitles = _subtitleArguments(*first);
        arguments += {"-i", pathOf(*first)};
        arguments += subtitles.input;
        if (deinterlaceVideo) arguments += {"-vf", "yadif"};
    }

    arguments += sizeArguments(*reference, true);
    if (const auto threads = threadCountArgument()) arguments += {"-threads", *threads};
    arguments += _videoArguments(videos, reference);
    const AudioArguments audio = isStitched ? AudioArguments{{"-an"}, false} : _audioArguments(first);
    arguments += audio.arguments;
    arguments += subtitles.pending;
    if (const auto format = fileType()) arguments += {"-f", *format};

    if (!isStitched) {
        if (first->selectedVideoTrack) arguments += mapping(first->selectedVideoTrack->trackNumber);
        if (first->selectedAudioTrack) arguments += mapping(first->selectedAudioTrack->trackNumber);
        if (audio.hasStereoTrack) arguments += mapping(first->selectedAudioTrack->trackNumber);
        if (arguments.contains("-c:s") && !first->subtitlesFileURL)
            arguments += mapping(first->subtitleTracks.first().trackNumber);
    }
    return arguments + closingArguments(outputFile);
}

/// Stitching scales all pictures to one size, for which each has to have one.
QString KVVideoPreset::refusalOfFiles(const KVMediaFileList &files) const {
    if (files.size() < 2 || !supportsStitching()) return {};
    for (const auto &file : videoFiles(files))
        if (const KVSize picture = KVVideoPreset::size(*file); picture.width <= 0 || picture.height <= 0)
            return KVLocalizationCenter::localized(
                "The frame size of \"%@\" is unknown, so it cannot be merged with other videos.",
                {KVFileManager::lastPathComponent(file->url())});
    return {};
}

QStringList KVVideoPreset::closingArguments(const QUrl &outputFile) {
    return {"-max_muxing_queue_size", "40000", "-map_chapters",         "0",
            "-map_metadata",          "0",     outputFile.toLocalFile()};
}

/// All inputs, scaled to the size that the reference gives and joined.
QStringList KVVideoPreset::_stitchingArguments(const KVVideoFileList &files,
                                               const KVVideoFile &reference) const {
    QStringList arguments;
    QList<KVSize> sizes;
    bool hasAudio = false;
    for (const auto &file : files) {
        arguments += {"-i", pathOf(*file)};
        sizes += KVVideoPreset::size(*file);
        hasAudio = hasAudio || file->selectedAudioTrack;
    }
    arguments += {"-filter_complex", KVStitchingFilter(sizes, size(reference), hasAudio), "-map", "[v]"};
    if (hasAudio) arguments += {"-map", "[a]"};
    return arguments;
}

KVVideoPreset::SubtitleArguments KVVideoPreset::_subtitleArguments(const KVVideoFile &file) const {
    if (!file.subtitlesFileURL) {
        if (file.subtitleTracks.isEmpty() || !supportsSubtitleMuxing() || !copySubtitles)
            return {{}, {"-sn"}};
        return {{}, argumentsForSubtitles(file)};
    }
    const auto converted =
        KVSubtitlesFile::convertedToUTF8(*file.subtitlesFileURL, file.subtitlesFileEncoding);
    if (!converted) return {{}, {"-sn"}};
    if (!supportsSubtitleMuxing() || burnSubtitlesIntoVideo)
        return {{}, {"-vf", "subtitles='" + *converted + "'"}};
    return {{"-sub_charenc", "UTF-8", "-i", *converted}, {"-map", "1", "-c:s", defaultSubtitleFormat()}};
}

QStringList KVVideoPreset::argumentsForSubtitles(const KVVideoFile &file) const {
    if (file.subtitleTracks.isEmpty()) return {};
    const KVSubtitleTrack &track = file.subtitleTracks.first();
    // Pictures cannot become text.
    if (track.format == "dvd_subtitle" || track.format == "hdmv_pgs_subtitle") return {};
    if (!supportsSubtitleMuxing()) return {};
    return {"-c:s", canCopySubtitleTrack(track) ? QStringLiteral("copy") : defaultSubtitleFormat()};
}

QStringList KVVideoPreset::_videoArguments(const KVVideoFileList &files,
                                           const std::shared_ptr<KVVideoFile> &reference) const {
    const bool isCopy = videoTrackQuality == KVTrackQualitySetting::copy;
    const bool isStitched = files.size() > 1;
    const KVVideoFile &first = *files.first();
    if (!isStitched && !_losesRotation(first) && (isCopy || canCopyVideoTrack(first)))
        return {"-c:v", "copy"};

    const auto format = videoFormat();
    if (hasSizeConstrains()) format->targetResolution = KVVideoFormat::Resolution::fromSize(size(*reference));
    // A track that cannot be copied: the next best is a good one.
    return format->arguments(reference, isCopy ? KVTrackQualitySetting::high : videoTrackQuality);
}

KVVideoPreset::AudioArguments KVVideoPreset::_audioArguments(const std::shared_ptr<KVVideoFile> &file) const {
    if (file->audioTracks.isEmpty()) return {{"-an"}, false};
    AudioArguments audio;
    if (audioTrackQuality == KVTrackQualitySetting::copy)
        audio.arguments = {"-c:a:0", "copy"};
    else
        audio.arguments = audioFormat()->arguments(file, audioTrackQuality);
    if (_addsStereoTrack(*file)) {
        const auto stereo = audioFormat();
        stereo->trackNumber = 1;
        stereo->audioChannelsType = KVAudioChannelsType::stereo;
        audio.arguments += stereo->arguments(file, audioTrackQuality);
        audio.hasStereoTrack = true;
    }
    return audio;
}

/// Beside a surround track only, and not where a person asked for fewer channels anyway.
bool KVVideoPreset::_addsStereoTrack(const KVVideoFile &file) const {
    if (!includeStereoTrack || !file.selectedAudioTrack) return false;
    if (file.selectedAudioTrack->numberOfChannels <= 2) return false;
    const bool isDownmix =
        audioChannelsType == KVAudioChannelsType::mono || audioChannelsType == KVAudioChannelsType::stereo;
    return audioTrackQuality != KVTrackQualitySetting::custom || !isDownmix;
}

bool KVVideoPreset::canCopyVideoTrack(const KVVideoFile &file) const {
    if (deinterlaceVideo) return false;
    if (!videoFormat()->canCopyVideoTrack(file, videoTrackQuality)) return false;
    if (!file.selectedVideoTrack || _losesRotation(file)) return false;
    const KVVideoTrack &track = *file.selectedVideoTrack;
    if (requiresEvenSizeValues() && (track.width % 2 != 0 || track.height % 2 != 0)) return false;
    if (!hasSizeConstrains() || videoTrackQuality != KVTrackQualitySetting::custom) return true;

    const KVSize target = size(file);
    const auto width = static_cast<double>(track.width);
    const auto height = static_cast<double>(track.height);
    if (allowsScalingUp()) return width == target.width && height == target.height;
    return width <= target.width && height <= target.height;
}

bool KVVideoPreset::_losesRotation(const KVVideoFile &file) const {
    // ffmpeg writes the rotation into these only.
    constexpr std::array rotatingExtensions{"mp4", "m4v", "mov", "3gp"};
    const auto extension = pathExtension(); // without one the container stays that of the source
    return extension && file.selectedVideoTrack && file.selectedVideoTrack->isRotated &&
           std::ranges::none_of(rotatingExtensions,
                                [&](const char *known) { return *extension == QLatin1String(known); });
}

QStringList KVVideoPreset::warningsForFiles(const KVMediaFileList &files) const {
    const KVVideoFileList videos = videoFiles(files);
    if (videos.size() != 1 || !supportsStitching())
        return {}; // presets that write their own list burn nothing in
    const KVVideoFile &file = *videos.first();
    QStringList warnings;
    if (videoTrackQuality == KVTrackQualitySetting::copy && _losesRotation(file))
        warnings += KVLocalizationCenter::localized(
            "The video track was encoded instead of copied, because %@ files cannot hold its rotation.",
            {pathExtension()->toUpper()});
    const bool burnsSubtitles =
        file.subtitlesFileURL && (!supportsSubtitleMuxing() || burnSubtitlesIntoVideo);
    if (!burnsSubtitles) return warnings;
    const auto text = KVSubtitlesFile::text(*file.subtitlesFileURL, file.subtitlesFileEncoding);
    const QStringList missing = KVSubtitleFonts::missingWritingSystems(text.value_or(QString()));
    if (!missing.isEmpty())
        warnings += KVLocalizationCenter::localized("The subtitles cannot be read in the picture, because no "
                                                    "font for these letters is installed: %@.",
                                                    {missing.join(", ")});
    return warnings;
}

std::unique_ptr<KVVideoFormat> KVVideoPreset::videoFormat() const {
    auto format = videoFormatClass().make();
    format->framerate = framerate != 0 ? framerate : defaultFramerate();
    format->bitrate = bitrate != 0 ? bitrate : defaultVideoBitrate();
    format->maxBitrate = maxBitrate != 0 ? maxBitrate : defaultVideoMaxBitrate();
    return format;
}

KVVideoFormatClass KVVideoPreset::videoFormatClass() const {
    KVFatalError("videoFormatClass");
}

QString KVVideoPreset::defaultSubtitleFormat() const {
    KVFatalError("defaultSubtitleFormat");
}

bool KVVideoPreset::canCopySubtitleTrack(const KVSubtitleTrack &) const {
    return false;
}

QStringList KVVideoPreset::sizeArguments(const KVVideoFile &, bool) const {
    return {};
}

KVSize KVVideoPreset::size(const KVVideoFile &file) const {
    if (!file.selectedVideoTrack) return {};
    return {static_cast<double>(file.selectedVideoTrack->width),
            static_cast<double>(file.selectedVideoTrack->height)};
}

std::optional<QString> KVVideoPreset::threadCountArgument() const {
    if (!supportsMultithreadConversion()) return std::nullopt;
    return QString::number(KVThreadCount(_maximumThreadCount(), 2));
}

const KVPresetFields<KVVideoPreset> &KVVideoPreset::fields() {
    static const auto fields =
        KVPresetFields<KVVideoPreset>()
            .boolean("ZRAlsoScaleUp", &KVVideoPreset::allowsScalingUp, &KVVideoPreset::setAllowsScalingUp)
            .integer("ZRBitrate", &KVVideoPreset::bitrate)
            .boolean("KVBurnSubtitles", &KVVideoPreset::burnSubtitlesIntoVideo)
            .boolean("KVDeinterlaceVideoTrack", &KVVideoPreset::deinterlaceVideo)
            .real("ZRFramerate", &KVVideoPreset::framerate)
            .boolean("ZRIncludesStereoTrack", &KVVideoPreset::includeStereoTrack)
            .integer("ZRMaxBitrate", &KVVideoPreset::maxBitrate)
            .enumeration("KVVideoTrackQuality", &KVVideoPreset::videoTrackQuality,
                         &KVTrackQualitySettingFromRawValue, KVTrackQualitySetting::medium);
    return fields;
}

std::shared_ptr<KVSettingsBase> KVVideoPreset::settings() {
    const auto pane =
        std::make_shared<KVVideoQualityBasedFormatSettings<KVVideoPreset>>(_shared<KVVideoPreset>());
    pane->additionalOptions = _additionalOptions();
    return pane;
}

KVOptionList KVVideoPreset::_additionalOptions() {
    using Toggle = KVBooleanOption<KVVideoPreset>;
    const auto edited = _shared<KVVideoPreset>();
    return {std::make_shared<Toggle>(KVLocalizationCenter::localized("Deinterlace"), edited,
                                     &KVVideoPreset::deinterlaceVideo),
            std::make_shared<Toggle>(KVLocalizationCenter::localized("Burn Subtitles Into Video Track"),
                                     edited, &KVVideoPreset::burnSubtitlesIntoVideo)};
}
