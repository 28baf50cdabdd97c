#pragma once

#include "presets/settings/KVAudioQualityBasedFormatSettings.h"

/// For an audio preset without a choice of quality: the options of its format between those that the preset
/// adds, all of them shown.
template <class Preset>
class KVAudioTrackFormatSettings : public KVSettings<Preset> {
  public:
    using Options = std::vector<std::shared_ptr<KVOptionBase<Preset>>>;

    explicit KVAudioTrackFormatSettings(const std::shared_ptr<Preset> &edited)
        : KVSettings<Preset>(edited)
        , _audioSettings(edited->audioFormat()->options(edited)) {}

    Options prependedOptions;
    Options appendedOptions;

    KVOptionList visibleOptions() const override {
        KVOptionList shown(prependedOptions.begin(), prependedOptions.end());
        shown.insert(shown.end(), _audioSettings.begin(), _audioSettings.end());
        shown.insert(shown.end(), appendedOptions.begin(), appendedOptions.end());
        return shown;
    }

    QSize defaultViewSize() const override { return this->_sizeOfVisibleOptions(KVQualitySettingsGap); }

  private:
    const KVOptionList _audioSettings;
};
