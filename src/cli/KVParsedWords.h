#pragma once

#include "cli/KVCommandOption.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QStringList>

#include <tl/expected.hpp>

#include <optional>

/// The words behind a subcommand, read by its table of options: "--name VALUE", "--name=VALUE", "--" before
/// words that only look like options.
class KVParsedWords {
  public:
    /// What is wrong comes as one sentence.
    static tl::expected<KVParsedWords, QString> parse(const QList<QByteArray> &words,
                                                      const QList<KVCommandOption> &options);

    bool isSet(const char *name) const { return _values.contains(QLatin1String(name)); }
    std::optional<QString> value(const char *name) const;
    QStringList values(const char *name) const { return _values.value(QLatin1String(name)); }

    const QList<KVCommandArgument> &arguments() const { return _arguments; }

  private:
    QHash<QString, QStringList> _values;
    QList<KVCommandArgument> _arguments;
};
