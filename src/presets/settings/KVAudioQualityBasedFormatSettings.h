#pragma once

#include "kvcore/KVLocalizationCenter.h"
#include "presets/settings/KVMultipleValueOption.h"
#include "presets/settings/KVSettings.h"
#include "presets/settings/KVTrackQualityValues.h"

inline constexpr int KVQualitySettingsGap = 5; ///< Points under each row.

/// A quality pop-up for the audio track; the value "Custom" reveals the options of the preset's audio format.
template <class Preset>
class KVAudioQualityBasedFormatSettings : public KVSettings<Preset> {
  public:
    explicit KVAudioQualityBasedFormatSettings(const std::shared_ptr<Preset> &edited)
        : KVSettings<Preset>(edited)
        , audioSettings(edited->audioFormat()->options(edited))
        , _audioQualitySetting(this->_qualityOption("Audio Quality:", &Preset::audioTrackQuality)) {}

    const KVOptionList audioSettings;

    KVTrackQualitySetting audioTrackQuality() const { return this->preset->audioTrackQuality; }
    void setAudioTrackQuality(KVTrackQualitySetting quality) {
        _audioQualitySetting->setter(*this->preset, quality);
    }

    KVOptionList visibleOptions() const override {
        KVOptionList shown{_audioQualitySetting};
        if (audioTrackQuality() == KVTrackQualitySetting::custom)
            shown.insert(shown.end(), audioSettings.begin(), audioSettings.end());
        return shown;
    }

    QSize defaultViewSize() const override { return this->_sizeOfVisibleOptions(KVQualitySettingsGap); }

  protected:
    using QualityOption = KVMultipleValueOption<Preset, KVTrackQualitySetting>;

    /// A pop-up on a quality of the preset, whose choice shows or hides the options of a format.
    template <class Owner>
    std::shared_ptr<QualityOption> _qualityOption(const char *label, KVTrackQualitySetting Owner::*quality) {
        return std::make_shared<QualityOption>(
            KVLocalizationCenter::localized(label), this->preset, KVMemberGetter(quality),
            [quality, notify = this->_visibleOptionsNotifier()](Preset &edited,
                                                                const KVTrackQualitySetting &chosen) {
                const auto previous = std::exchange(edited.*quality, chosen);
                using enum KVTrackQualitySetting;
                if ((previous == custom) != (chosen == custom)) notify();
            },
            std::equal_to<KVTrackQualitySetting>(), KVTrackQualityValues());
    }

  private:
    const std::shared_ptr<QualityOption> _audioQualitySetting;
};
