#pragma once

#include "kvcore/KVLocalizationCenter.h"
#include "presets/KVSizeRestrictedPreset.h"
#include "presets/settings/KVBooleanOption.h"
#include "presets/settings/KVNumericOption.h"

#include <limits>

/// Limits the size of the output. The check box is `hasSizeConstrains`; while it is on, the maximum width and
/// height and "Allows scaling up" are shown. Switched off, the preset keeps their values.
template <class Preset>
class KVSizeOption : public KVBooleanOption<Preset> {
  public:
    KVSizeOption(const QString &optionName, const std::shared_ptr<Preset> &edited)
        : KVBooleanOption<Preset>(
              optionName, edited, [](const Preset &preset) { return _of(preset).hasSizeConstrains(); },
              [](Preset &preset, const bool &isOn) { _of(preset).setHasSizeConstrains(isOn); })
        , _details{
              _side("Maximum width", &KVSizeRestrictedPreset::maxWidth, &KVSizeRestrictedPreset::setMaxWidth),
              _side("Maximum height", &KVSizeRestrictedPreset::maxHeight,
                    &KVSizeRestrictedPreset::setMaxHeight),
              std::make_shared<KVBooleanOption<Preset>>(
                  KVLocalizationCenter::localized("Allows scaling up"), edited,
                  [](const Preset &preset) { return _of(preset).allowsScalingUp(); },
                  [](Preset &preset, const bool &isOn) { _of(preset).setAllowsScalingUp(isOn); })} {}

    KVOptionKind kind() const override { return KVOptionKind::size; }
    KVOptionList details() const override { return this->_read() ? _details : KVOptionList(); }
    int optionHeight() const override { return 2 * KVOptionViewsDefaultHeight; }

  private:
    static const KVSizeRestrictedPreset &_of(const Preset &preset) {
        return KVPresetAs<const KVSizeRestrictedPreset>(preset);
    }
    static KVSizeRestrictedPreset &_of(Preset &preset) { return KVPresetAs<KVSizeRestrictedPreset>(preset); }

    std::shared_ptr<KVOptionRoot> _side(const char *label, qint64 (KVSizeRestrictedPreset::*get)() const,
                                        void (KVSizeRestrictedPreset::*set)(qint64)) const {
        return std::make_shared<KVNumericOption<Preset>>(
            KVLocalizationCenter::localized(label), this->editedObject, 0, std::numeric_limits<int>::max(),
            [get](const Preset &preset) { return (_of(preset).*get)(); },
            [set](Preset &preset, const qint64 &pixels) { (_of(preset).*set)(pixels); });
    }

    const KVOptionList _details;
};
