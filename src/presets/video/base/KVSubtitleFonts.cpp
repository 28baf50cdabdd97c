#include "presets/video/base/KVSubtitleFonts.h"

#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVProcess.h"
#include "tasks/KVFFmpegTask.h"

#include <QHash>
#include <QStandardPaths>

#include <array>

namespace {

struct WritingSystem {
    QChar::Script script;
    const char *name;
};

constexpr std::array writingSystems{
    WritingSystem{QChar::Script_Greek, "Greek"},
    WritingSystem{QChar::Script_Cyrillic, "Cyrillic"},
    WritingSystem{QChar::Script_Arabic, "Arabic"},
    WritingSystem{QChar::Script_Hebrew, "Hebrew"},
    WritingSystem{QChar::Script_Thai, "Thai"},
    WritingSystem{QChar::Script_Devanagari, "Devanagari"},
    WritingSystem{QChar::Script_Han, "Chinese characters"},
    WritingSystem{QChar::Script_Hiragana, "Japanese"},
    WritingSystem{QChar::Script_Katakana, "Japanese"},
    WritingSystem{QChar::Script_Hangul, "Korean"},
};

/// The first character of each script in `text`.
QHash<QChar::Script, char32_t> samples(const QString &text) {
    QHash<QChar::Script, char32_t> samples;
    for (const uint character : text.toUcs4())
        if (const auto script = QChar::script(character); !samples.contains(script))
            samples.insert(script, character);
    return samples;
}

/// Whether a font has the character. True if that cannot be found out.
bool isCovered(char32_t character, const QString &program, const QString &fontsDirectory) {
    KVProcess process;
    process.setLaunchPath(program);
    process.setArguments({":charset=" + QString::number(character, 16), "file"});
    process.setEnvironment({{"FONTCONFIG_PATH", fontsDirectory}});
    process.setStandardError(KVProcess::Stream::nullDevice);
    const auto handle = process.setStandardOutput(KVProcess::Stream::pipe);
    if (!process.launch()) return true;
    QByteArray output;
    for (QByteArray part = handle->availableData(); !part.isEmpty(); part = handle->availableData())
        output += part;
    process.waitUntilExit();
    return process.terminationStatus() != 0 || !output.trimmed().isEmpty();
}

} // namespace

QStringList KVSubtitleFonts::missingWritingSystems(const QString &text) {
    const auto found = samples(text);
    const QString program = QStandardPaths::findExecutable("fc-list");
    const auto fonts = KVFFmpegTask::preparedFontsDirectory();
    if (program.isEmpty() || !fonts) return {};
    QStringList missing;
    for (const WritingSystem &system : writingSystems) {
        if (!found.contains(system.script) || isCovered(found.value(system.script), program, *fonts))
            continue;
        missing += KVLocalizationCenter::localized(system.name);
    }
    missing.removeDuplicates();
    return missing;
}
