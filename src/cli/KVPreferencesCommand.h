#pragma once

#include "cli/KVCommand.h"

/// "preferences": the preference store by its key texts.
class KVPreferencesCommand : public KVCommand {
  public:
    using KVCommand::KVCommand;

    QString name() const override { return "preferences"; }
    QStringList usages() const override {
        return {"[--json]", "get [--json] KEY", "set KEY VALUE", "remove KEY"};
    }
    QString summary() const override { return "Reads and changes the preferences"; }
    QString details() const override;
    QList<KVCommandOption> options() const override { return {jsonOption}; }

    KVExitStatus run(const KVParsedWords &words) override;

  private:
    KVExitStatus _list(bool isJSON) const;
    KVExitStatus _get(const QString &key, bool isJSON) const;
    KVExitStatus _set(const QString &key, const QString &text) const;
    KVExitStatus _store(const QString &key, const QVariant &value) const;
};
