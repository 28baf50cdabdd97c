#pragma once

#include "kvcore/KVFatalError.h"
#include "presets/settings/KVOptionBase.h"

#include <functional>
#include <type_traits>

/// An option over one value of the preset.
template <class Preset, class Value>
class KVOption : public KVOptionBase<Preset> {
  public:
    using Getter = std::function<Value(const Preset &)>;
    using Setter = std::function<void(Preset &, const Value &)>;

    KVOption(const QString &optionName, std::shared_ptr<Preset> edited, Getter get, Setter set)
        : KVOptionBase<Preset>(optionName, std::move(edited))
        , getter(std::move(get))
        , setter(std::move(set)) {}

    const Getter getter;
    const Setter setter;

  protected:
    Value _read() const { return getter(*this->editedObject); }
    void _write(const Value &value) { setter(*this->editedObject, value); }
};

/// Getter and setter of a plain data member of the preset or of a base of it.
template <class Base, class Value>
auto KVMemberGetter(Value Base::*member) {
    return [member](const auto &preset) { return preset.*member; };
}
template <class Base, class Value>
auto KVMemberSetter(Value Base::*member) {
    return [member](auto &preset, const Value &value) { preset.*member = value; };
}

/// The preset through the interface that an option needs; a preset without it is a programming error.
template <class Interface, class Preset>
Interface &KVPresetAs(Preset &preset) {
    auto *found = dynamic_cast<Interface *>(&preset);
    if (!found) KVFatalError("An option needs an interface that its preset does not have.");
    return *found;
}
