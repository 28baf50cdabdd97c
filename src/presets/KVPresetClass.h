#pragma once

#include <memory>
#include <string_view>
#include <type_traits>
#include <typeindex>

class KVPreset;

/// One class of the preset tree. The name is in users' files ("Kalvora." + name): it is never changed and
/// never reused.
struct KVPresetClass {
    std::string_view name;
    std::type_index type;
    /// Makes a new instance with its default name; null for an abstract class.
    std::shared_ptr<KVPreset> (*make)() = nullptr;
    /// Returns a new object with the same values in all fields; null for an abstract class.
    std::shared_ptr<KVPreset> (*copy)(const KVPreset &preset) = nullptr;
    /// True for an instance of this class or of a subclass.
    bool (*isInstance)(const KVPreset &preset) = nullptr;

    bool isAbstractPreset() const { return make == nullptr; }

    template <class Preset>
    static KVPresetClass abstractClass(std::string_view name) {
        return {name, typeid(Preset), nullptr, nullptr, &_isInstance<Preset>};
    }

    template <class Preset>
    static KVPresetClass concreteClass(std::string_view name) {
        return {name, typeid(Preset), &_make<Preset>, &_copy<Preset>, &_isInstance<Preset>};
    }

  private:
    template <class Preset>
    static std::shared_ptr<KVPreset> _make() {
        return Preset::template make<Preset>();
    }

    template <class Preset>
    static std::shared_ptr<KVPreset> _copy(const KVPreset &preset) {
        return std::make_shared<Preset>(static_cast<const Preset &>(preset));
    }

    template <class Preset>
    static bool _isInstance([[maybe_unused]] const KVPreset &preset) {
        if constexpr (std::is_same_v<Preset, KVPreset>)
            return true;
        else
            return dynamic_cast<const Preset *>(&preset) != nullptr;
    }
};
