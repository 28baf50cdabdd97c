#pragma once

#include "presets/settings/KVOption.h"
#include "presets/settings/KVValueOption.h"

#include <algorithm>

/// One of several named values. The equator tells which of them the preset holds; the first match wins. A
/// value that is not on offer stays as it is until another is chosen. No two entries share a name.
template <class Preset, class Value>
class KVMultipleValueOption : public KVOption<Preset, Value> {
  public:
    using Base = KVOption<Preset, Value>;
    using Equator = std::function<bool(const Value &, const Value &)>;
    using Values = std::vector<KVValueOption<Value>>;

    KVMultipleValueOption(const QString &optionName, std::shared_ptr<Preset> edited,
                          typename Base::Getter get, typename Base::Setter set, Equator equator,
                          Values values)
        : Base(optionName, std::move(edited), std::move(get), std::move(set))
        , allowedValues(std::move(values))
        , valueEqualator(std::move(equator)) {}

    template <class Owner>
    KVMultipleValueOption(const QString &optionName, std::shared_ptr<Preset> edited, Value Owner::*member,
                          Values values)
        : KVMultipleValueOption(optionName, std::move(edited), KVMemberGetter(member), KVMemberSetter(member),
                                std::equal_to<Value>(), std::move(values)) {}

    const Values allowedValues;
    const Equator valueEqualator;

    KVOptionKind kind() const override { return KVOptionKind::choice; }

    QStringList allowedValueNames() const override {
        QStringList names;
        for (const auto &allowed : allowedValues)
            names.append(allowed.name);
        return names;
    }

    QVariant value() const override {
        const Value current = this->_read();
        const auto entry = std::ranges::find_if(
            allowedValues, [&](const auto &allowed) { return valueEqualator(current, allowed.value); });
        return entry == allowedValues.end() ? QVariant() : QVariant(entry->name);
    }

    bool setValue(const QVariant &value) override {
        const auto entry = std::ranges::find(allowedValues, value.toString(), &KVValueOption<Value>::name);
        if (entry == allowedValues.end()) return false;
        this->_write(entry->value);
        return true;
    }
};
