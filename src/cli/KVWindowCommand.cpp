#include "cli/KVWindowCommand.h"

#include "util/KVMediaFileType.h"

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

    sayFailure(QStringLiteral("no window is running"));
    return KVExitStatus::failure;
}
