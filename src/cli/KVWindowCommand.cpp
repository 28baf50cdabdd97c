#include "cli/KVWindowCommand.h"

#include "core/doors/KVScriptingCommands.h"
#include "core/doors/KVWindowBusName.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDir>
#include <QProcess>
#include <QUrl>

#include <algorithm>
#include <array>
#include <limits>

namespace {

KVAppleScriptQueueType queueCode(KVMediaFileType type) {
    switch (type) {
    case KVMediaFileType::audio:
        return KVAppleScriptQueueType::audio;
    case KVMediaFileType::video:
        return KVAppleScriptQueueType::video;
    case KVMediaFileType::picture:
        return KVAppleScriptQueueType::picture;
    case KVMediaFileType::dvd:
        return KVAppleScriptQueueType::dvd;
    case KVMediaFileType::none:
        break;
    }
    return KVAppleScriptQueueType::all;
}

QUrl urlOf(const QString &word) {
    return QUrl::fromUserInput(word, QDir::currentPath(), QUrl::AssumeLocalFile);
}

bool hasDisplay() {
    constexpr std::array variables{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::ranges::any_of(variables,
                               [](const char *name) { return !qEnvironmentVariableIsEmpty(name); });
}

} // namespace

std::vector<std::unique_ptr<KVCommand>> KVWindowCommand::all(KVConsole &console) {
    const QString queues = "[--queue audio|video|picture|dvd|all]";
    std::vector<std::unique_ptr<KVCommand>> commands;
    const auto add = [&](const char *name, const QString &usage, const char *summary, Arguments arguments,
                         bool hasQueue) {
        commands.emplace_back(new KVWindowCommand(console, name, usage, summary, arguments, hasQueue));
    };
    add("start", queues, "Starts queues of the running window", Arguments::none, true);
    add("pause", queues, "Pauses queues of the running window", Arguments::none, true);
    add("select-preset", "NAME " + queues, "Selects a preset in the running window", Arguments::one, true);
    add("add", "FILE|URL...", "Adds files to the queues of the window", Arguments::oneOrMore, false);
    return commands;
}

KVWindowCommand::KVWindowCommand(KVConsole &console, const QString &name, const QString &usage,
                                 const QString &summary, Arguments arguments, bool hasQueue)
    : KVCommand(console)
    , _name(name)
    , _usage(usage)
    , _summary(summary)
    , _takenArguments(arguments)
    , _hasQueue(hasQueue) {}

QList<KVCommandOption> KVWindowCommand::options() const {
    if (!_hasQueue) return {};
    return {{"queue", "QUEUE", "audio, video, picture, dvd or all (the default)"}};
}

KVExitStatus KVWindowCommand::run(const KVParsedWords &words) {
    const qsizetype count = words.arguments().size();
    if (_takenArguments == Arguments::none && count > 0)
        return usageError(QStringLiteral("there is nothing to name here"));
    if (_takenArguments == Arguments::one && count != 1)
        return usageError(QStringLiteral("one NAME is wanted"));
    if (_takenArguments == Arguments::oneOrMore && count == 0)
        return usageError(QStringLiteral("a FILE or URL is missing"));
    const QString queue = words.value("queue").value_or(QStringLiteral("all"));
    const auto type = KVMediaFileTypes::fromCaseName(queue).value_or(KVMediaFileType::none);
    if (queue != QLatin1String("all") && type == KVMediaFileType::none)
        return usageError(
            QStringLiteral("\"%1\" is no queue; there are audio, video, picture, dvd and all").arg(queue));

    return _takenArguments == Arguments::oneOrMore ? _add(words) : _command(words, type);
}

/// What the window answers to the call; nothing where none is running.
std::optional<bool> KVWindowCommand::_ask(const QString &operation, const QVariantList &arguments) const {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return std::nullopt;
    auto call = QDBusMessage::createMethodCall(KVWindowBusName::service, KVWindowBusName::objectPath,
                                               KVWindowBusName::scriptingInterface, operation);
    call.setAutoStartService(false);
    call.setArguments(arguments);
    // It may have to ask its user something first.
    const QDBusReply<bool> answer = bus.call(call, QDBus::Block, std::numeric_limits<int>::max());
    if (!answer.isValid()) return std::nullopt;
    return answer.value();
}

KVExitStatus KVWindowCommand::_command(const KVParsedWords &words, KVMediaFileType type) {
    const QVariant queue = static_cast<uint>(queueCode(type));
    const auto answer = _name == QLatin1String("start") ? _ask("Start", {queue})
                        : _name == QLatin1String("pause")
                            ? _ask("Pause", {queue})
                            : _ask("SelectPreset", {words.arguments().first().text, queue});
    if (answer == true) return KVExitStatus::success;
    sayFailure(answer ? objection() : QStringLiteral("no window is running"));
    return KVExitStatus::failure;
}

QString KVWindowCommand::objection() const {
    if (_name == QLatin1String("start")) return QStringLiteral("there is nothing to start");
    if (_name == QLatin1String("pause")) return QStringLiteral("there is nothing to pause");
    return QStringLiteral("no queue takes this preset");
}

KVExitStatus KVWindowCommand::_add(const KVParsedWords &words) {
    QStringList urls;
    for (const KVCommandArgument &word : words.arguments()) {
        if (!word.isReadable) {
            sayFailure(QStringLiteral("%1: The name is not UTF-8.").arg(word.text));
            return KVExitStatus::failure;
        }
        urls.append(urlOf(word.text).toString(QUrl::FullyEncoded));
    }
    if (const auto answer = _ask("Add", {urls})) {
        if (*answer) return KVExitStatus::success;
        sayFailure(QStringLiteral("the window took nothing in"));
        return KVExitStatus::failure;
    }
    if (!hasDisplay()) {
        sayFailure(QStringLiteral("no window is running, and there is no display to open one on"));
        return KVExitStatus::failure;
    }
    const QString window = QCoreApplication::applicationDirPath() + "/kalvora";
    if (QProcess::startDetached(window, urls)) return KVExitStatus::success;
    sayFailure(QStringLiteral("the window does not start"));
    return KVExitStatus::failure;
}
