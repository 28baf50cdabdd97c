#pragma once

#include "cli/KVCommand.h"
#include "presets/KVPreset.h"

struct KVConversionRequest;

/// "arguments": what a conversion would run.
class KVArgumentsCommand : public KVCommand {
  public:
    using KVCommand::KVCommand;

    QString name() const override { return "arguments"; }
    QStringList usages() const override { return {"--preset NAME [options] FILE..."}; }
    QString summary() const override { return "Tells what a conversion would run, without running it"; }
    QString details() const override;
    QList<KVCommandOption> options() const override;

    KVExitStatus run(const KVParsedWords &words) override;

  private:
    /// The files of all conversions that the inputs would make, in order, or why there are none.
    tl::expected<KVMediaFileList, QString> _filesOf(const KVConversionRequest &request) const;
    KVExitStatus _print(const QUrl &output, const QStringList &arguments, bool isJSON) const;
    KVExitStatus _printError(const QString &message, bool isJSON) const;
};
