#include "presets/formats/audio_track/KVAudioFormat.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "presets/audio/base/KVAudioPreset.h"
#include "presets/formats/audio_track/KVNearestValue.h"
#include "presets/settings/KVMultipleValueOption.h"
#include "video_info/media_file/KVAudioFile.h"

#include <algorithm>

namespace {

std::shared_ptr<KVOptionRoot> channelsOption(const std::shared_ptr<KVAudioPreset> &preset) {
    using enum KVAudioChannelsType;
    using Option = KVMultipleValueOption<KVAudioPreset, KVAudioChannelsType>;
    return std::make_shared<Option>(KVLocalizationCenter::localized("Channels:"), preset,
                                    &KVAudioPreset::audioChannelsType,
                                    Option::Values{{KVLocalizationCenter::localized("As Source"), asSource},
                                                   {KVLocalizationCenter::localized("Mono"), mono},
                                                   {KVLocalizationCenter::localized("Stereo"), stereo},
                                                   {KVLocalizationCenter::localized("Surround"), surround}});
}

std::shared_ptr<KVOptionRoot> sampleRateOption(const std::shared_ptr<KVAudioPreset> &preset,
                                               const QList<qint64> &frequencies) {
    using Option = KVMultipleValueOption<KVAudioPreset, std::optional<qint64>>;
    Option::Values values{{"Default", std::nullopt}}; // shown as it stands in every language
    for (const qint64 frequency : frequencies)
        values.push_back({QString::number(frequency) + " Hz", frequency});
    return std::make_shared<Option>(KVLocalizationCenter::localized("Sample Rate:"), preset,
                                    &KVAudioPreset::sampleRate, std::move(values));
}

} // namespace

QStringList KVAudioFormat::arguments(const std::shared_ptr<KVMediaFile> &file,
                                     KVTrackQualitySetting quality) const {
    const auto audioFile = std::dynamic_pointer_cast<KVAudioFile>(file);
    if (!audioFile) KVFatalError("An audio format needs an audio file.");

    QStringList arguments{_specified("-c:a"), codec()};
    arguments += _channelArguments(*audioFile, quality);
    arguments += frequencyArguments(*audioFile);
    arguments += additionalArguments(*audioFile, quality);
    return arguments;
}

std::vector<std::shared_ptr<KVOptionRoot>>
KVAudioFormat::options(const std::shared_ptr<KVPreset> &preset) const {
    const auto audioPreset = std::dynamic_pointer_cast<KVAudioPreset>(preset);
    if (!audioPreset) KVFatalError("options(for:)");

    KVOptionList options{channelsOption(audioPreset)};
    if (const auto frequencies = supportedFrequencies(); !frequencies.isEmpty())
        options.push_back(sampleRateOption(audioPreset, frequencies));
    return options;
}

QStringList KVAudioFormat::additionalArguments(const KVAudioFile &, KVTrackQualitySetting) const {
    return {};
}

QString KVAudioFormat::audioChannels(const KVAudioFile &file, KVTrackQualitySetting quality) const {
    if (file.audioTracks.isEmpty() || !file.selectedAudioTrack) return "2";
    if (quality == KVTrackQualitySetting::copy) KVCopyTrackFatalError();
    if (quality == KVTrackQualitySetting::custom) {
        if (audioChannelsType == KVAudioChannelsType::mono) return "1";
        if (audioChannelsType == KVAudioChannelsType::stereo) return "2";
    }
    // "Surround" means as many channels as the source has, within what the format takes.
    return QString::number(std::min(maximumNumberOfChannels(), file.selectedAudioTrack->numberOfChannels));
}

/// The number of channels. ffmpeg cannot mix those of a sphere into another number of channels; they stay as
/// they are where the encoder takes them, and otherwise two opposite directions become a stereo track.
QStringList KVAudioFormat::_channelArguments(const KVAudioFile &file, KVTrackQualitySetting quality) const {
    const QString channels = audioChannels(file, quality);
    if (!file.selectedAudioTrack || !file.selectedAudioTrack->isAmbisonic)
        return {_specified("-ac:a"), channels};
    const bool keepsChannels = channels == QString::number(file.selectedAudioTrack->numberOfChannels);
    if (keepsChannels && takesAnyChannelLayout()) return {};
    return {_specified("-filter:a"), channels == "1"
                                         ? QStringLiteral("pan=mono|c0=c0")
                                         : QStringLiteral("pan=stereo|c0=0.5*c0+0.5*c1|c1=0.5*c0-0.5*c1")};
}

QStringList KVAudioFormat::frequencyArguments(const KVAudioFile &file) const {
    if (!file.selectedAudioTrack) return {};
    if (sampleRate) return {_specified("-ar:a"), QString::number(*sampleRate)};

    const auto frequencies = supportedFrequencies();
    const qint64 frequency = file.selectedAudioTrack->frequency;
    if (frequencies.isEmpty() || frequencies.contains(frequency)) return {};
    const qint64 nearest = KVNearestValue(frequency, frequencies);
    return {_specified("-ar:a"), QString::number(nearest == 0 ? frequencies.first() : nearest)};
}

QString KVAudioFormat::_specified(const char *option) const {
    return QString::fromLatin1(option) + ":" + QString::number(trackNumber);
}
