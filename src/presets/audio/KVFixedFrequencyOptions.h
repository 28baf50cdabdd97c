#pragma once

#include "kvcore/KVLocalizationCenter.h"
#include "presets/settings/KVMultipleValueOption.h"

/// The options that the lossless presets share: a rate and a sample size, each out of a list.
namespace KVFixedFrequencyOptions {

template <class Preset>
std::shared_ptr<KVOptionBase<Preset>> frequency(const std::shared_ptr<Preset> &preset) {
    using Option = KVMultipleValueOption<Preset, qint64>;
    typename Option::Values values;
    for (const qint64 frequency : preset->audioFormat()->supportedFrequencies())
        values.push_back({QString::number(frequency) + " Hz", frequency});
    return std::make_shared<Option>(KVLocalizationCenter::localized("Frequency"), preset, &Preset::frequency,
                                    std::move(values));
}

template <class Preset>
std::shared_ptr<KVOptionBase<Preset>> sampleBits(const std::shared_ptr<Preset> &preset,
                                                 const QList<qint64> &sizes) {
    using Option = KVMultipleValueOption<Preset, qint64>;
    typename Option::Values values;
    for (const qint64 bits : sizes)
        values.push_back({KVLocalizationCenter::localized("%li-bit", {bits}), bits});
    return std::make_shared<Option>(KVLocalizationCenter::localized("Sample Bits"), preset,
                                    &Preset::sampleBits, std::move(values));
}

} // namespace KVFixedFrequencyOptions
