#pragma once

#include "presets/settings/KVAudioQualityBasedFormatSettings.h"
#include "presets/settings/KVBooleanOption.h"

/// A quality pop-up for each of the two tracks, each revealing the options of its format with "Custom", then
/// the options that are always shown.
template <class Preset>
class KVVideoQualityBasedFormatSettings : public KVAudioQualityBasedFormatSettings<Preset> {
  public:
    explicit KVVideoQualityBasedFormatSettings(const std::shared_ptr<Preset> &edited)
        : KVAudioQualityBasedFormatSettings<Preset>(edited)
        , videoSettings(edited->videoFormat()->options(edited))
        , _videoQualitySetting(this->_qualityOption("Video Quality:", &Preset::videoTrackQuality))
        , _copySubtitlesSetting(std::make_shared<KVBooleanOption<Preset>>(
              KVLocalizationCenter::localized("Copy Subtitles from Source"), edited,
              &Preset::copySubtitles)) {}

    KVOptionList additionalOptions; ///< Those that a preset adds.
    const KVOptionList videoSettings;

    KVTrackQualitySetting videoTrackQuality() const { return this->preset->videoTrackQuality; }
    void setVideoTrackQuality(KVTrackQualitySetting quality) {
        _videoQualitySetting->setter(*this->preset, quality);
    }

    KVOptionList visibleOptions() const override {
        KVOptionList shown{_videoQualitySetting};
        if (videoTrackQuality() == KVTrackQualitySetting::custom)
            shown.insert(shown.end(), videoSettings.begin(), videoSettings.end());
        for (const KVOptionList &part :
             {KVAudioQualityBasedFormatSettings<Preset>::visibleOptions(), _additionalOptions()})
            shown.insert(shown.end(), part.begin(), part.end());
        return shown;
    }

  private:
    KVOptionList _additionalOptions() const {
        KVOptionList options{_copySubtitlesSetting};
        options.insert(options.end(), additionalOptions.begin(), additionalOptions.end());
        return options;
    }

    const std::shared_ptr<typename KVAudioQualityBasedFormatSettings<Preset>::QualityOption>
        _videoQualitySetting;
    const std::shared_ptr<KVBooleanOption<Preset>> _copySubtitlesSetting;
};
