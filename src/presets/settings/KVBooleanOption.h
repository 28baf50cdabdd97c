#pragma once

#include "presets/settings/KVOption.h"

/// A check box titled with the option's name.
template <class Preset>
class KVBooleanOption : public KVOption<Preset, bool> {
  public:
    using Base = KVOption<Preset, bool>;
    using Base::Base;

    template <class Owner>
    KVBooleanOption(const QString &optionName, std::shared_ptr<Preset> edited, bool Owner::*member)
        : Base(optionName, std::move(edited), KVMemberGetter(member), KVMemberSetter(member)) {}

    KVOptionKind kind() const override { return KVOptionKind::toggle; }
    QVariant value() const override { return this->_read(); }
    bool setValue(const QVariant &value) override {
        this->_write(value.toBool());
        return true;
    }
};
