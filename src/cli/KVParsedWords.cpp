#include "cli/KVParsedWords.h"

#include "cli/KVNearestNames.h"
#include "cli/KVPrintableText.h"

#include <algorithm>

namespace {

tl::unexpected<QString> wrong(const QString &message) {
    return tl::unexpected(message);
}

QString unknownOption(const QString &word, const QList<KVCommandOption> &options) {
    QStringList names;
    for (const KVCommandOption &option : options)
        names.append("--" + option.name);
    return QStringLiteral("unknown option %1%2").arg(word, KVNearestNames::hint(word, names));
}

} // namespace

tl::expected<KVParsedWords, QString> KVParsedWords::parse(const QList<QByteArray> &words,
                                                          const QList<KVCommandOption> &options) {
    KVParsedWords parsed;
    bool isBehindOptions = false;
    for (auto word = words.begin(); word != words.end(); ++word) {
        const bool isReadable = KVPrintableText::isUTF8(*word);
        const QString text = isReadable ? QString::fromUtf8(*word) : KVPrintableText::ofBytes(*word);
        if (isBehindOptions || !word->startsWith('-')) {
            parsed._arguments.append({text, isReadable});
            continue;
        }
        if (*word == "--") {
            isBehindOptions = true;
            continue;
        }

        const qsizetype equals = text.indexOf(u'=');
        const QString name = text.left(equals < 0 ? text.size() : equals);
        const auto option = std::ranges::find_if(
            options, [&](const KVCommandOption &candidate) { return name == "--" + candidate.name; });
        if (option == options.end()) return wrong(unknownOption(name, options));
        QStringList &values = parsed._values[option->name];
        if (!values.isEmpty() && !option->valueName.isEmpty() && !option->isRepeatable)
            return wrong(QStringLiteral("%1 is given twice").arg(name));

        if (option->valueName.isEmpty()) {
            if (equals >= 0) return wrong(QStringLiteral("%1 takes no value").arg(name));
            values.append(QString());
            continue;
        }
        QByteArray value = word->mid(word->indexOf('=') + 1);
        if (equals < 0) {
            // A value that begins with two dashes is written behind "=": here it is a forgotten value.
            if (std::next(word) == words.end() || std::next(word)->startsWith("--"))
                return wrong(QStringLiteral("%1 needs a value (%2)").arg(name, option->valueName));
            value = *++word;
        }
        if (!KVPrintableText::isUTF8(value))
            return wrong(QStringLiteral("the value of %1 is not UTF-8: %2")
                             .arg(name, KVPrintableText::ofBytes(value)));
        values.append(QString::fromUtf8(value));
    }
    return parsed;
}

std::optional<QString> KVParsedWords::value(const char *name) const {
    const auto found = _values.find(QLatin1String(name));
    return found != _values.end() ? std::optional(found->last()) : std::nullopt;
}
