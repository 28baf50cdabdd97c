#include "cli/KVPresetsCommand.h"

#include "cli/KVJSONValue.h"
#include "cli/KVPrintableText.h"
#include "presets/KVPreset.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace {

using PresetList = std::vector<std::shared_ptr<KVPreset>>;

QJsonObject object(const KVPreset &preset) {
    const std::string_view className = preset.presetClass().name;
    return {{"name", preset.name},
            {"class", QString::fromLatin1(className.data(), static_cast<qsizetype>(className.size()))},
            {"type", KVMediaFileTypes::caseName(preset.presetType())},
            {"isCustom", preset.isCustom},
            {"isEnabled", preset.isEnabled},
            {"pathExtension", KVJSONValueOrNull(preset.pathExtension())},
            {"fileType", KVJSONValueOrNull(preset.fileType())},
            {"supportsStitching", preset.supportsStitching()},
            {"threadCountArgument", KVJSONValueOrNull(preset.threadCountArgument())},
            {"description", preset.localizedFormatDescription()},
            {"tags", QJsonArray::fromStringList(preset.tags())},
            {"settings", QJsonObject::fromVariantMap(preset.dictionaryRepresentation())}};
}

/// Name, type and file extension in columns; a custom or disabled preset says so.
QStringList table(const PresetList &presets) {
    int nameWidth = 0;
    for (const auto &preset : presets)
        nameWidth = std::max(nameWidth, KVPrintableText::width(KVPrintableText::ofText(preset->name)));
    QStringList lines;
    for (const auto &preset : presets) {
        QString line = KVPrintableText::padded(KVPrintableText::ofText(preset->name), nameWidth) + "  " +
                       KVMediaFileTypes::caseName(preset->presetType()).leftJustified(9) +
                       preset->pathExtension().value_or(QStringLiteral("as source")).leftJustified(11);
        if (preset->isCustom) line += "custom ";
        if (!preset->isEnabled) line += "disabled";
        lines.append(line.trimmed());
    }
    return lines;
}

} // namespace

QList<KVCommandOption> KVPresetsCommand::options() const {
    return {jsonOption, {"type", "TYPE", "only those of one kind: audio, video, picture or dvd"}};
}

KVExitStatus KVPresetsCommand::run(const KVParsedWords &words) {
    if (!words.arguments().isEmpty()) return usageError(QStringLiteral("there is nothing to name here"));
    const auto typeName = words.value("type");
    const auto type = typeName ? KVMediaFileTypes::fromCaseName(*typeName) : std::nullopt;
    if (typeName && type.value_or(KVMediaFileType::none) == KVMediaFileType::none)
        return usageError(
            QStringLiteral("\"%1\" is no type; there are audio, video, picture and dvd").arg(*typeName));

    PresetList presets;
    std::ranges::copy_if(KVPreset::allPresets(), std::back_inserter(presets),
                         [&](const auto &preset) { return !type || preset->presetType() == *type; });
    if (!words.isSet("json")) {
        for (const QString &line : table(presets))
            _console.writeResult(line);
        return KVExitStatus::success;
    }
    QJsonArray list;
    for (const auto &preset : presets)
        list.append(object(*preset));
    writeJSON(list);
    return KVExitStatus::success;
}
