#pragma once

#include "kvcore/KVLocalizationCenter.h"
#include "presets/KVPercentScalablePreset.h"
#include "presets/settings/KVBooleanOption.h"
#include "presets/settings/KVNumericOption.h"

#include <limits>

/// Scales the output by a percentage, which is shown while the check box is on.
template <class Preset>
class KVPercentageScalingOption : public KVBooleanOption<Preset> {
  public:
    using Base = KVBooleanOption<Preset>;

    KVPercentageScalingOption(const QString &optionName, const std::shared_ptr<Preset> &edited,
                              typename Base::Getter get, typename Base::Setter set)
        : Base(optionName, edited, std::move(get), std::move(set))
        , _percentage(std::make_shared<KVNumericOption<Preset>>(
              KVLocalizationCenter::localized("Percentage"), edited, 0, std::numeric_limits<int>::max(),
              [](const Preset &preset) {
                  return KVPresetAs<const KVPercentScalablePreset>(preset).scalingPercentage();
              },
              [](Preset &preset, const qint64 &percentage) {
                  KVPresetAs<KVPercentScalablePreset>(preset).setScalingPercentage(percentage);
              })) {}

    template <class Owner>
    KVPercentageScalingOption(const QString &optionName, const std::shared_ptr<Preset> &edited,
                              bool Owner::*member)
        : KVPercentageScalingOption(optionName, edited, KVMemberGetter(member), KVMemberSetter(member)) {}

    KVOptionKind kind() const override { return KVOptionKind::percentage; }
    KVOptionList details() const override {
        return this->_read() ? KVOptionList{_percentage} : KVOptionList();
    }

  private:
    const std::shared_ptr<KVOptionRoot> _percentage;
};
