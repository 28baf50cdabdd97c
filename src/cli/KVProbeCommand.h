#pragma once

#include "cli/KVCommand.h"

/// "probe": what each file is.
class KVProbeCommand : public KVCommand {
  public:
    using KVCommand::KVCommand;

    QString name() const override { return "probe"; }
    QStringList usages() const override { return {"[--json] FILE..."}; }
    QString summary() const override { return "Tells what each file is and which tracks it has"; }
    QString details() const override;
    QList<KVCommandOption> options() const override { return {jsonOption}; }

    KVExitStatus run(const KVParsedWords &words) override;
};
