#pragma once

#include "presets/KVStoredValue.h"

#include <QString>
#include <QVariantMap>

#include <functional>
#include <optional>
#include <vector>

/// The persisted fields of one preset class, each stated once and walked for loading and for saving:
///
///     static const auto fields = KVPresetFields<KVWAVPreset>()
///                                    .integer("ZRWAVSampleBits", &KVWAVPreset::sampleBits, 24)
///                                    .boolean("ZRWAVUsesBigEndian", &KVWAVPreset::usesBigEndian);
///
/// A field that is absent from the dictionary, or of another kind, reads as its fallback. A field is a data
/// member or, for a property that subclasses override, a pair of accessors.
template <class Preset>
class KVPresetFields {
  public:
    template <class T>
    using Getter = T (Preset::*)() const;
    template <class T>
    using Setter = void (Preset::*)(T);

    KVPresetFields &integer(const QString &key, qint64 Preset::*member, qint64 fallback = 0) {
        return _member(key, member, &KVStoredValue::integer, fallback);
    }
    KVPresetFields &integer(const QString &key, Getter<qint64> get, Setter<qint64> set, qint64 fallback = 0) {
        return _property(key, get, set, &KVStoredValue::integer, fallback);
    }

    KVPresetFields &boolean(const QString &key, bool Preset::*member, bool fallback = false) {
        return _member(key, member, &KVStoredValue::boolean, fallback);
    }
    KVPresetFields &boolean(const QString &key, Getter<bool> get, Setter<bool> set, bool fallback = false) {
        return _property(key, get, set, &KVStoredValue::boolean, fallback);
    }

    KVPresetFields &real(const QString &key, double Preset::*member, double fallback = 0) {
        return _member(key, member, &KVStoredValue::real, fallback);
    }

    KVPresetFields &text(const QString &key, QString Preset::*member, const QString &fallback = {}) {
        return _member(key, member, &KVStoredValue::text, fallback);
    }

    /// Written only where there is a value.
    KVPresetFields &optionalInteger(const QString &key, std::optional<qint64> Preset::*member) {
        return _add(
            key,
            [member](const Preset &preset) {
                return (preset.*member).has_value() ? QVariant::fromValue(*(preset.*member)) : QVariant();
            },
            [member](Preset &preset, const QVariant &stored) {
                preset.*member = KVStoredValue::exactInteger(stored);
            });
    }

    /// Stored as its raw value; a number that is no case reads as the fallback.
    template <class Enumeration, class Owner>
    KVPresetFields &enumeration(const QString &key, Enumeration Owner::*member,
                                std::optional<Enumeration> (*fromRawValue)(qint64), Enumeration fallback) {
        return _add(
            key,
            [member](const Preset &preset) {
                return QVariant::fromValue(static_cast<qint64>(preset.*member));
            },
            [member, fromRawValue, fallback](Preset &preset, const QVariant &stored) {
                const auto rawValue = KVStoredValue::integer(stored);
                preset.*member = (rawValue ? fromRawValue(*rawValue) : std::nullopt).value_or(fallback);
            });
    }

    void load(Preset &preset, const QVariantMap &dictionary) const {
        for (const Field &field : _fields)
            field.load(preset, dictionary.value(field.key));
    }

    void save(const Preset &preset, QVariantMap &dictionary) const {
        for (const Field &field : _fields)
            if (const QVariant value = field.save(preset); value.isValid())
                dictionary.insert(field.key, value);
    }

  private:
    using Save = std::function<QVariant(const Preset &)>;
    using Load = std::function<void(Preset &, const QVariant &stored)>;
    struct Field {
        QString key;
        Save save;
        Load load;
    };

    template <class T>
    using Read = std::optional<T> (*)(const QVariant &);

    template <class T>
    KVPresetFields &_member(const QString &key, T Preset::*member, Read<T> read, const T &fallback) {
        return _add(
            key, [member](const Preset &preset) { return QVariant::fromValue(preset.*member); },
            [member, read, fallback](Preset &preset, const QVariant &stored) {
                preset.*member = read(stored).value_or(fallback);
            });
    }

    template <class T>
    KVPresetFields &_property(const QString &key, Getter<T> get, Setter<T> set, Read<T> read, T fallback) {
        return _add(
            key, [get](const Preset &preset) { return QVariant::fromValue((preset.*get)()); },
            [set, read, fallback](Preset &preset, const QVariant &stored) {
                (preset.*set)(read(stored).value_or(fallback));
            });
    }

    KVPresetFields &_add(const QString &key, Save save, Load load) {
        _fields.push_back({key, std::move(save), std::move(load)});
        return *this;
    }

    std::vector<Field> _fields;
};
