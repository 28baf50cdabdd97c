#include "presets/video/other/KVVideoRemuxPreset.h"

#include "kvcore/KVLocalizationCenter.h"
#include "presets/formats/audio_track/KVAACFormat.h"
#include "presets/formats/audio_track/KVMP3Format.h"
#include "presets/settings/KVAudioQualityBasedFormatSettings.h"
#include "video_info/media_file/KVVideoFile.h"

namespace {

/// The two formats above the quality of the audio track.
class Settings : public KVAudioQualityBasedFormatSettings<KVVideoRemuxPreset> {
  public:
    Settings(const std::shared_ptr<KVVideoRemuxPreset> &edited, KVOptionList formats)
        : KVAudioQualityBasedFormatSettings(edited)
        , _formats(std::move(formats)) {}

    KVOptionList visibleOptions() const override {
        KVOptionList shown = _formats;
        const KVOptionList audio = KVAudioQualityBasedFormatSettings::visibleOptions();
        shown.insert(shown.end(), audio.begin(), audio.end());
        return shown;
    }

  private:
    const KVOptionList _formats;
};

} // namespace

QStringList KVVideoRemuxPreset::taskArguments(const std::shared_ptr<KVMediaFile> &file,
                                              const QUrl &outputFile) const {
    const auto video = std::dynamic_pointer_cast<KVVideoFile>(file);
    if (!video) return {};
    return QStringList{"-y", "-i", video->url().toLocalFile(), "-c:v", "copy"} + _audioArguments(video) +
           _containerArguments(*video, outputFile);
}

QStringList KVVideoRemuxPreset::_audioArguments(const std::shared_ptr<KVVideoFile> &file) const {
    if (file->audioTracks.isEmpty()) return {"-an"};
    if (audioTrackQuality == KVTrackQualitySetting::copy) return {"-c:a:0", "copy"};
    return audioFormat()->arguments(file, audioTrackQuality);
}

KVAudioFormatClass KVVideoRemuxPreset::audioFormatClass() const {
    return audioFormatName == "aac" ? KVAudioFormatClass::of<KVAACFormat>()
                                    : KVAudioFormatClass::of<KVMP3Format>();
}

QString KVVideoRemuxPreset::defaultName() const {
    return KVLocalizationCenter::localized("Remux With Audio Conversion");
}

QString KVVideoRemuxPreset::localizedFormatDescription() const {
    return KVLocalizationCenter::localized("This preset  changes the video's container and transcodes "
                                           "audio.\n\nCurrent format selected: %@ %@",
                                           {format, audioFormatName});
}

const KVPresetFields<KVVideoRemuxPreset> &KVVideoRemuxPreset::fields() {
    static const auto fields = KVPresetFields<KVVideoRemuxPreset>().text(
        "ZRRemuxAudioFormat", &KVVideoRemuxPreset::audioFormatName, "mp3");
    return fields;
}

std::shared_ptr<KVSettingsBase> KVVideoRemuxPreset::settings() {
    using AudioFormats = KVMultipleValueOption<KVVideoRemuxPreset, QString>;
    const auto edited = _shared<KVVideoRemuxPreset>();
    const auto audioFormats = std::make_shared<AudioFormats>(
        KVLocalizationCenter::localized("Audio Format:"), edited, &KVVideoRemuxPreset::audioFormatName,
        AudioFormats::Values{{"mp3", "mp3"}, {"aac", "aac"}});
    return std::make_shared<Settings>(edited, KVOptionList{_formatOption(), audioFormats});
}
