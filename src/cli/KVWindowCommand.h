#pragma once

#include "cli/KVCommand.h"
#include "util/KVMediaFileType.h"

#include <QVariantList>

#include <memory>
#include <optional>
#include <vector>

/// "start", "pause", "select-preset" and "add": commands for a window that runs.
class KVWindowCommand : public KVCommand {
  public:
    /// One for each of the four.
    static std::vector<std::unique_ptr<KVCommand>> all(KVConsole &console);

    QString name() const override { return _name; }
    QStringList usages() const override { return {_usage}; }
    QString summary() const override { return _summary; }
    QList<KVCommandOption> options() const override;

    KVExitStatus run(const KVParsedWords &words) override;

  private:
    /// How many words a command takes.
    enum class Arguments { none, one, oneOrMore };

    KVWindowCommand(KVConsole &console, const QString &name, const QString &usage, const QString &summary,
                    Arguments arguments, bool hasQueue);

    std::optional<bool> _ask(const QString &operation, const QVariantList &arguments) const;
    KVExitStatus _command(const KVParsedWords &words, KVMediaFileType type);
    KVExitStatus _add(const KVParsedWords &words);
    /// Why the window's answer is no.
    QString objection() const;

    QString _name;
    QString _usage;
    QString _summary;
    Arguments _takenArguments;
    bool _hasQueue;
};
