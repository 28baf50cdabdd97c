#pragma once

#include "presets/settings/KVSettings.h"

/// The usual settings of a preset that does not work by quality: a list of options, all of them shown.
template <class Preset>
class KVSettingsWithOptions : public KVSettings<Preset> {
  public:
    using Options = std::vector<std::shared_ptr<KVOptionBase<Preset>>>;

    KVSettingsWithOptions(std::shared_ptr<Preset> edited, Options shownOptions)
        : KVSettings<Preset>(std::move(edited))
        , options(std::move(shownOptions)) {}

    Options options;

    KVOptionList visibleOptions() const override { return {options.begin(), options.end()}; }
    QSize defaultViewSize() const override { return this->_sizeOfVisibleOptions(0); }
};
