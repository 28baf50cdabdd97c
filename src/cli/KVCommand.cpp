#include "cli/KVCommand.h"

#include "cli/KVCommandQuestions.h"
#include "cli/KVInputPath.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

QString optionLines(const QList<KVCommandOption> &options) {
    const auto heading = [](const KVCommandOption &option) {
        return "--" + option.name + (option.valueName.isEmpty() ? QString() : " " + option.valueName);
    };
    qsizetype width = 0;
    for (const KVCommandOption &option : options)
        width = std::max(width, heading(option).size());
    QString lines;
    for (const KVCommandOption &option : options)
        lines += QStringLiteral("  %1  %2\n").arg(heading(option).leftJustified(width), option.help);
    return lines;
}

} // namespace

QList<KVCommandOption> KVCommand::commonOptions() {
    return {{"no-questions", {}, "ask nothing: take the answer that changes nothing, and say so"},
            {"verbose", {}, "print the log to standard error"},
            {"help", {}, "print this help"},
            {"version", {}, "print the version"}};
}

QString KVCommand::help() const {
    QString text = summary() + ".\n\nUsage:\n";
    for (const QString &usage : usages())
        text += QStringLiteral("  kalvoractl %1 %2\n").arg(name(), usage);
    text += "\nOptions:\n" + optionLines(options() + commonOptions());
    if (!details().isEmpty()) text += '\n' + details() + '\n';
    return text.chopped(1);
}

KVExitStatus KVCommand::usageError(const QString &message) const {
    _console.say(QStringLiteral("kalvoractl %1: %2; see \"kalvoractl %1 --help\"").arg(name(), message));
    return KVExitStatus::usage;
}

void KVCommand::writeJSON(const QJsonValue &value) const {
    const QJsonDocument document =
        value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
    if (value.isArray() || value.isObject())
        return _console.writeResult(QString::fromUtf8(document.toJson()).trimmed());
    // A single value is written as the only member of an array is.
    const QString text = QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    _console.writeResult(text.sliced(1).chopped(1));
}

void KVCommand::sayFailure(const QString &message) const {
    _console.say("kalvoractl: " + message);
}

void KVCommand::plugInQuestions(const KVParsedWords &words) const {
    KVCommandQuestions::plugIn(_console, !words.isSet("no-questions"));
}
