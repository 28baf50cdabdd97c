#pragma once

#include "cli/KVCommand.h"

#include <QByteArray>
#include <QList>

#include <memory>
#include <vector>

/// `kalvoractl`: finds the subcommand and hands the rest of the words to it.
class KVCommandLine {
  public:
    explicit KVCommandLine(KVConsole &console);

    /// Answers what needs neither an application object nor a home folder: "--help", "--version" and most of
    /// what is wrong. Nothing where the subcommand has to run.
    std::optional<KVExitStatus> answerAtOnce(const QList<QByteArray> &words);

    /// Runs the subcommand that `answerAtOnce` found. Main thread; the application object exists.
    KVExitStatus run();

  private:
    KVCommand *_commandNamed(const QString &name) const;
    QString _help() const;
    KVExitStatus _usageError(const QString &message) const;

    KVConsole &_console;
    std::vector<std::unique_ptr<KVCommand>> _commands;
    KVCommand *_command = nullptr;
    KVParsedWords _words;
};
