#pragma once

#include "cli/KVCommand.h"

/// "presets": the list of all presets.
class KVPresetsCommand : public KVCommand {
  public:
    using KVCommand::KVCommand;

    QString name() const override { return "presets"; }
    QStringList usages() const override { return {"[--json] [--type audio|video|picture|dvd]"}; }
    QString summary() const override { return "Lists the presets"; }
    QList<KVCommandOption> options() const override;

    KVExitStatus run(const KVParsedWords &words) override;
};
