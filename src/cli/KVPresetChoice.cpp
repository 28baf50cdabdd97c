#include "cli/KVPresetChoice.h"

#include "cli/KVNearestNames.h"
#include "cli/KVValueText.h"

#include <algorithm>

namespace {

/// What makes a preset the one that it is.
const QStringList identityKeys{"ZRPresetClass", "ZRPresetName", "ZRPresetIsCustom", "ZRPresetIsEnabled",
                               "KVPresetType"};

bool isBoolean(const QVariant &value) {
    return value.typeId() == QMetaType::Bool;
}

bool isText(const QVariant &value) {
    return value.typeId() == QMetaType::QString;
}

/// True if the preset took the value for what it is: what it cannot use, it reads as something else.
bool isSame(const QVariant &wanted, const QVariant &taken) {
    if (!taken.isValid() || isText(wanted) != isText(taken)) return false;
    if (isText(taken)) return wanted.toString() == taken.toString();
    if (isBoolean(wanted) && !isBoolean(taken)) return false;
    return wanted.toDouble() == taken.toDouble();
}

std::shared_ptr<KVPreset> changed(const KVPreset &preset, const QString &key, const QVariant &value) {
    QVariantMap dictionary = preset.dictionaryRepresentation();
    dictionary.insert(key, value);
    return KVPreset::fromDictionary(preset.presetClass(), dictionary);
}

/// An optional setting stands in no dictionary until it has a value: try one.
bool hasKey(const KVPreset &preset, const QString &key) {
    return preset.dictionaryRepresentation().contains(key) ||
           changed(preset, key, qint64{1})->dictionaryRepresentation().contains(key);
}

/// True if the preset answers the same whatever it is told: no value of the setting's kind changes it.
bool isFixed(const KVPreset &preset, const QString &key) {
    const QVariant now = preset.dictionaryRepresentation().value(key);
    QVariantList others{now.toDouble() + 1, now.toDouble() - 1, 0, 1, 2};
    if (isBoolean(now)) others = {!now.toBool()};
    if (isText(now)) others = {};
    return !others.isEmpty() && std::ranges::all_of(others, [&](const QVariant &other) {
        return changed(preset, key, other)->dictionaryRepresentation().value(key) == now;
    });
}

/// The settings that may be meant; all of them where none is near.
QString hintForKey(const QString &key, const KVPreset &preset) {
    QStringList keys = preset.dictionaryRepresentation().keys();
    keys.removeIf([](const QString &name) { return identityKeys.contains(name); });
    QString nearest = KVNearestNames::hint(key, keys);
    if (!nearest.isEmpty() || keys.isEmpty()) return nearest;
    return QStringLiteral(" (there are %1)").arg(keys.join(QLatin1String(", ")));
}

tl::expected<std::shared_ptr<KVPreset>, QString> withChange(const QString &change,
                                                            const std::shared_ptr<KVPreset> &preset) {
    const qsizetype equals = change.indexOf(u'=');
    const QString key = change.left(equals);
    if (equals < 1) return tl::unexpected(QStringLiteral("--set needs KEY=VALUE, not \"%1\"").arg(change));
    if (identityKeys.contains(key))
        return tl::unexpected(QStringLiteral("%1 belongs to the preset and cannot be changed").arg(key));
    if (!hasKey(*preset, key)) {
        return tl::unexpected(QStringLiteral("the preset \"%1\" has no setting %2%3")
                                  .arg(preset->name, key, hintForKey(key, *preset)));
    }

    const QString text = change.sliced(equals + 1);
    const bool isTextSetting = isText(preset->dictionaryRepresentation().value(key));
    const QVariant value = isTextSetting ? QVariant(text) : KVValueText::parse(text);
    const auto result = changed(*preset, key, value);
    if (isSame(value, result->dictionaryRepresentation().value(key))) return result;
    if (isFixed(*preset, key))
        return tl::unexpected(QStringLiteral("the preset \"%1\" has a %2 of its own that cannot be changed")
                                  .arg(preset->name, key));
    return tl::unexpected(QStringLiteral("\"%1\" is no value for %2").arg(text, key));
}

} // namespace

tl::expected<std::shared_ptr<KVPreset>, QString> KVPresetChoice::make(const QString &name,
                                                                      const QStringList &changes) {
    auto preset = KVPreset::presetNamed(name);
    if (!preset) {
        QStringList names;
        for (const auto &known : KVPreset::allPresets())
            names.append(known->name);
        QString hint = KVNearestNames::hint(name, names);
        if (hint.isEmpty()) hint = QStringLiteral(" (\"kalvoractl presets\" lists them)");
        return tl::unexpected(QStringLiteral("there is no preset \"%1\"%2").arg(name, hint));
    }
    for (const QString &change : changes) {
        const auto next = withChange(change, preset);
        if (!next) return tl::unexpected(next.error());
        preset = *next;
    }
    return preset;
}

bool KVPresetChoice::canConvert(const KVPreset &preset, KVMediaFileType type) {
    switch (preset.presetType()) {
    case KVMediaFileType::audio:
        return type == KVMediaFileType::audio || type == KVMediaFileType::video;
    case KVMediaFileType::dvd:
        return type == KVMediaFileType::dvd || type == KVMediaFileType::video;
    default:
        return type == preset.presetType();
    }
}
