#include "presets/audio/base/KVAudioPreset.h"

#include "kvcore/KVFatalError.h"
#include "presets/settings/KVAudioTrackFormatSettings.h"
#include "video_info/media_file/KVAudioFile.h"

#include <algorithm>

namespace {

using AudioFiles = QList<std::shared_ptr<KVAudioFile>>;

/// All files as audio files; none where one is something else.
AudioFiles audioFiles(const KVMediaFileList &files) {
    AudioFiles audioFiles;
    for (const auto &file : files)
        audioFiles.append(std::dynamic_pointer_cast<KVAudioFile>(file));
    return audioFiles.contains(nullptr) ? AudioFiles() : audioFiles;
}

QString pathOf(const std::shared_ptr<KVAudioFile> &file) {
    return file->url().toLocalFile();
}

/// The inputs; several are joined, the first audio stream of each.
QStringList inputArguments(const AudioFiles &files) {
    if (files.size() == 1) return {"-i", pathOf(files.first())};

    QStringList arguments;
    QString filter;
    for (qsizetype i = 0; i < files.size(); ++i) {
        arguments << "-i" << pathOf(files[i]);
        filter += "[" + QString::number(i) + ":a:0] ";
    }
    filter += "concat=n=" + QString::number(files.size()) + ":v=0:a=1[a]";
    return arguments << "-filter_complex" << filter << "-map"
                     << "[a]"
                     << "-max_muxing_queue_size"
                     << "40000";
}

/// Which stream of a single file goes out. With one audio track the tool's own choice is the right one.
QStringList mappingArguments(const KVAudioFile &file) {
    QStringList arguments;
    if (file.selectedAudioTrack && file.audioTracks.size() >= 2)
        arguments << "-map"
                  << "0:" + QString::number(file.selectedAudioTrack->trackNumber);
    return arguments << "-map_metadata"
                     << "0";
}

} // namespace

QStringList KVAudioPreset::taskArgumentsForFiles(const KVMediaFileList &files, const QUrl &outputFile) const {
    const AudioFiles sources = audioFiles(files);
    if (sources.isEmpty()) return {};

    QStringList arguments{"-y"};
    arguments += inputArguments(sources);
    if (const auto threads = threadCountArgument()) arguments << "-threads" << *threads;
    arguments << "-vn";
    if (audioTrackQuality == KVTrackQualitySetting::copy)
        arguments << "-c:a:0"
                  << "copy";
    else
        arguments += audioFormat()->arguments(sources.first(), audioTrackQuality);
    if (sources.size() == 1) arguments += mappingArguments(*sources.first());
    return arguments << outputFile.toLocalFile();
}

std::unique_ptr<KVAudioFormat> KVAudioPreset::audioFormat() const {
    auto format = audioFormatClass().make();
    format->audioChannelsType = audioChannelsType;
    format->sampleRate = sampleRate;
    return format;
}

KVAudioFormatClass KVAudioPreset::audioFormatClass() const {
    KVFatalError("audioFormatClass");
}

const KVPresetFields<KVAudioPreset> &KVAudioPreset::fields() {
    static const auto fields =
        KVPresetFields<KVAudioPreset>()
            .enumeration("ZRAudioChannels", &KVAudioPreset::audioChannelsType,
                         &KVAudioChannelsTypeFromRawValue, KVAudioChannelsType::asSource)
            .enumeration("KVAudioTrackQuality", &KVAudioPreset::audioTrackQuality,
                         &KVTrackQualitySettingFromRawValue, KVTrackQualitySetting::medium)
            .optionalInteger("KVSampleRate", &KVAudioPreset::sampleRate);
    return fields;
}

std::shared_ptr<KVSettingsBase> KVAudioPreset::settings() {
    return std::make_shared<KVAudioTrackFormatSettings<KVAudioPreset>>(_shared<KVAudioPreset>());
}
