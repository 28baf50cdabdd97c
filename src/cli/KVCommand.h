#pragma once

#include "cli/KVCommandOption.h"
#include "cli/KVConsole.h"
#include "cli/KVExitStatus.h"
#include "cli/KVParsedWords.h"

#include <QJsonValue>

/// One subcommand of `kalvoractl`. Main thread.
class KVCommand {
  public:
    explicit KVCommand(KVConsole &console)
        : _console(console) {}
    virtual ~KVCommand() = default;

    virtual QString name() const = 0;
    /// What stands behind the name, one way of calling it a line.
    virtual QStringList usages() const = 0;
    /// One line for the list of subcommands.
    virtual QString summary() const = 0;
    /// Paragraphs for the subcommand's own help.
    virtual QString details() const { return {}; }
    /// Without those that every subcommand has.
    virtual QList<KVCommandOption> options() const { return {}; }

    virtual KVExitStatus run(const KVParsedWords &words) = 0;

    /// Options of every subcommand.
    static QList<KVCommandOption> commonOptions();
    QString help() const;

    /// Says in one line what is wrong with the command line and how to get help.
    KVExitStatus usageError(const QString &message) const;

  protected:
    static inline const KVCommandOption jsonOption{"json", {}, "print the result as one JSON document"};

    void writeJSON(const QJsonValue &document) const;
    /// Says what failed: "kalvoractl: <message>".
    void sayFailure(const QString &message) const;
    /// Who answers the engine's questions, by the options and the streams.
    void plugInQuestions(const KVParsedWords &words) const;

    KVConsole &_console;
};
