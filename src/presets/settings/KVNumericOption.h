#pragma once

#include "kvcore/KVText.h"
#include "presets/settings/KVOption.h"

#include <algorithm>

/// A whole number between two limits. What is entered is clamped; what the preset holds is shown as it is.
template <class Preset>
class KVNumericOption : public KVOption<Preset, qint64> {
  public:
    using Base = KVOption<Preset, qint64>;

    KVNumericOption(const QString &optionName, std::shared_ptr<Preset> edited, qint64 minimum, qint64 maximum,
                    typename Base::Getter get, typename Base::Setter set)
        : Base(optionName, std::move(edited), std::move(get), std::move(set))
        , _minValue(minimum)
        , _maxValue(maximum) {}

    template <class Owner>
    KVNumericOption(const QString &optionName, std::shared_ptr<Preset> edited, qint64 minimum, qint64 maximum,
                    qint64 Owner::*member)
        : KVNumericOption(optionName, std::move(edited), minimum, maximum, KVMemberGetter(member),
                          KVMemberSetter(member)) {}

    KVOptionKind kind() const override { return KVOptionKind::number; }
    qint64 minValue() const override { return _minValue; }
    qint64 maxValue() const override { return _maxValue; }
    QVariant value() const override { return QVariant::fromValue(this->_read()); }

    bool setValue(const QVariant &value) override {
        const bool isText = value.typeId() == QMetaType::QString;
        const qint64 number = isText ? KVText::integerValue(value.toString()) : value.toLongLong();
        this->_write(std::clamp(number, _minValue, _maxValue));
        return true;
    }

  private:
    const qint64 _minValue;
    const qint64 _maxValue;
};
