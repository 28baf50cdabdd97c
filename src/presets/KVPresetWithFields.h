#pragma once

#include "presets/KVPresetFields.h"

/// A class of presets that persists fields of its own behind those of `Base`. `Preset`, the class itself,
/// states them:
///
///     static const KVPresetFields<KVWAVPreset> &fields();
template <class Preset, class Base>
class KVPresetWithFields : public Base {
  public:
    QVariantMap dictionaryRepresentation() const override {
        QVariantMap dictionary = Base::dictionaryRepresentation();
        Preset::fields().save(static_cast<const Preset &>(*this), dictionary);
        return dictionary;
    }

    void loadFromDictionary(const QVariantMap &dictionary) override {
        Base::loadFromDictionary(dictionary);
        Preset::fields().load(static_cast<Preset &>(*this), dictionary);
    }

  protected:
    KVPresetWithFields() = default;
};
