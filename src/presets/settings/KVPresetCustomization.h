#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

/// A lighter form of a setting: one pop-up of named values.
class KVPresetCustomizationBase {
  public:
    explicit KVPresetCustomizationBase(const QString &name)
        : localizedName(name) {}
    virtual ~KVPresetCustomizationBase() = default;

    const QString localizedName;
};

template <class Value>
struct KVPresetCustomizationValue {
    bool isSelected = false;
    QString name;
    Value value;
};

template <class Preset, class Value>
class KVPresetCustomization : public KVPresetCustomizationBase {
  public:
    using Values = std::vector<KVPresetCustomizationValue<Value>>;
    using Setter = std::function<void(Preset &, const KVPresetCustomizationValue<Value> &)>;

    KVPresetCustomization(const QString &name, std::shared_ptr<Preset> edited, Values values, Setter set)
        : KVPresetCustomizationBase(name)
        , preset(std::move(edited))
        , allowedValues(std::move(values))
        , valueSetter(std::move(set)) {}

    const std::shared_ptr<Preset> preset;
    const Values allowedValues;
    const Setter valueSetter;

    /// The pop-up's action.
    void selectValue(const KVPresetCustomizationValue<Value> &chosen) { valueSetter(*preset, chosen); }
};
