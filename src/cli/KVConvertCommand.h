#pragma once

#include "cli/KVCommand.h"

struct KVConversionRequest;

/// "convert": converts files and folders.
class KVConvertCommand : public KVCommand {
  public:
    using KVCommand::KVCommand;

    QString name() const override { return "convert"; }
    QStringList usages() const override { return {"--preset NAME [options] FILE|FOLDER..."}; }
    QString summary() const override { return "Converts files and folders"; }
    QString details() const override;
    QList<KVCommandOption> options() const override;

    KVExitStatus run(const KVParsedWords &words) override;

  private:
    KVExitStatus _convert(const KVConversionRequest &request, const KVParsedWords &words);
};
