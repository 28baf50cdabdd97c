#include "cli/KVCommandLine.h"

#include "cli/KVArgumentsCommand.h"
#include "cli/KVConvertCommand.h"
#include "cli/KVNearestNames.h"
#include "cli/KVPreferencesCommand.h"
#include "cli/KVPresetsCommand.h"
#include "cli/KVPrintableText.h"
#include "cli/KVProbeCommand.h"
#include "cli/KVWindowCommand.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVPreferences.h"

#include <algorithm>

namespace {

/// True if the switch stands among the words, before a "--".
bool hasSwitch(const QList<QByteArray> &words, const char *name) {
    const auto end = std::ranges::find(words, QByteArray("--"));
    return std::find(words.begin(), end, QByteArray(name)) != end;
}

} // namespace

KVCommandLine::KVCommandLine(KVConsole &console)
    : _console(console) {
    _commands.push_back(std::make_unique<KVProbeCommand>(console));
    _commands.push_back(std::make_unique<KVPresetsCommand>(console));
    _commands.push_back(std::make_unique<KVArgumentsCommand>(console));
    _commands.push_back(std::make_unique<KVConvertCommand>(console));
    _commands.push_back(std::make_unique<KVPreferencesCommand>(console));
    for (auto &command : KVWindowCommand::all(console))
        _commands.push_back(std::move(command));
}

std::optional<KVExitStatus> KVCommandLine::answerAtOnce(const QList<QByteArray> &words) {
    const QString name = words.isEmpty() ? QString() : KVPrintableText::ofBytes(words.first());
    _command = _commandNamed(name);
    if (hasSwitch(words, "--help")) {
        _console.writeResult(_command ? _command->help() : _help());
        return KVExitStatus::success;
    }
    if (hasSwitch(words, "--version")) {
        _console.writeResult(QStringLiteral("kalvoractl " KALVORA_VERSION));
        return KVExitStatus::success;
    }
    if (words.isEmpty()) return _usageError(QStringLiteral("a subcommand is missing"));
    if (!_command) {
        QStringList names;
        for (const auto &command : _commands)
            names.append(command->name());
        return _usageError(
            QStringLiteral("unknown subcommand \"%1\"%2").arg(name, KVNearestNames::hint(name, names)));
    }
    auto parsed = KVParsedWords::parse(words.sliced(1), _command->options() + KVCommand::commonOptions());
    if (!parsed) return _command->usageError(parsed.error());
    _words = std::move(*parsed);
    return std::nullopt;
}

KVExitStatus KVCommandLine::run() {
    if (_words.isSet("verbose")) KVSetLogSink([this](const QString &line) { _console.say(line); });
    KVPreferences::setDamageReporter([this](const QString &path, const QString &keptPath) {
        _console.say(QStringLiteral("kalvoractl: the preferences in %1 were damaged; they are kept as %2")
                         .arg(path, keptPath));
    });
    const KVExitStatus status = _command->run(_words);
    KVPreferences::setDamageReporter({});
    KVSetLogSink({});
    _console.paint({});
    const bool isAllWritten = _console.flushResults();
    return status == KVExitStatus::success && !isAllWritten ? KVExitStatus::failure : status;
}

KVCommand *KVCommandLine::_commandNamed(const QString &name) const {
    const auto found =
        std::ranges::find_if(_commands, [&](const auto &command) { return command->name() == name; });
    return found != _commands.end() ? found->get() : nullptr;
}

QString KVCommandLine::_help() const {
    QString text = QStringLiteral("Converts audio, video, pictures and DVD folders.\n\n"
                                  "Usage:\n  kalvoractl SUBCOMMAND [options] [arguments]\n\nSubcommands:\n");
    for (const auto &command : _commands)
        text += QStringLiteral("  %1  %2\n").arg(command->name().leftJustified(13), command->summary());
    return text +
           QStringLiteral(
               "\n\"kalvoractl SUBCOMMAND --help\" tells the options of one.\n"
               "Results go to standard output, everything else to standard error.\n\n"
               "Exit status: 0 all was done; 1 something failed, the rest was done; 2 the command line\n"
               "is wrong; 130 or 143 ended by SIGINT or SIGTERM.");
}

KVExitStatus KVCommandLine::_usageError(const QString &message) const {
    _console.say(QStringLiteral("kalvoractl: %1; see \"kalvoractl --help\"").arg(message));
    return KVExitStatus::usage;
}
