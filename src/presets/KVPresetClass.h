#pragma once

#include <memory>
#include <string_view>

class KVPreset;

/// One class of the preset tree. The name is in users' files ("Kalvora." + name): it is never changed and
/// never reused.
struct KVPresetClass {
    std::string_view name;
    /// Makes a new instance with its default name; null for an abstract class.
    std::shared_ptr<KVPreset> (*make)() = nullptr;
    /// True for an instance of this class or of a subclass.
    bool (*isInstance)(const KVPreset &preset) = nullptr;

    bool isAbstractPreset() const { return make == nullptr; }
};
