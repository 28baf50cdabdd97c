#include "support/KVTestCase.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

namespace {

// Names of presets are kept in the preferences and typed on the command line: they are the same in every
// language.
bool isNameOfAPreset(const QString &source, const QString &beforeText) {
    return source.contains("presets/") && beforeText.contains("defaultName() const");
}

/// The literals that follow the calls which localise; parts that stand behind each other are one text.
QSet<QString> textsOfTheProgram() {
    static const QRegularExpression call(
        R"re((?:localized|_item<[^>]*>|_add|_clearMenu|refusal|setButton)\(\s*(?:[*\w:]+,\s*)*((?:"(?:[^"\\]|\\.)*"\s*)+))re");
    static const QRegularExpression literal(R"re("((?:[^"\\]|\\.)*)")re");
    QSet<QString> texts;
    QDirIterator files(KV_TEST_DIRECTORY "/../src", {"*.cpp", "*.h"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.fileName().contains("/src/cli/") || !file.open(QIODevice::ReadOnly)) continue;
        const QString code = QString::fromUtf8(file.readAll());
        for (auto calls = call.globalMatch(code); calls.hasNext();) {
            const auto match = calls.next();
            const qsizetype start = match.capturedStart();
            if (isNameOfAPreset(file.fileName(), code.mid(std::max<qsizetype>(0, start - 90), 90))) continue;
            QString text;
            for (auto parts = literal.globalMatch(match.captured(1)); parts.hasNext();)
                text += parts.next().captured(1);
            text.replace("\\n", "\n").replace("\\t", "\t").replace("\\\"", "\"");
            texts.insert(text.replace("\\u2022", QChar(0x2022)).replace("\\u2605", QChar(0x2605)));
        }
    }
    return texts;
}

/// Source texts and their translations.
QHash<QString, QString> translations(const QString &path) {
    QHash<QString, QString> translations;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return translations;
    QXmlStreamReader xml(&file);
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("source")) source = xml.readElementText();
        if (xml.name() == QLatin1String("translation")) translations[source] = xml.readElementText();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return translations;
}

QStringList placeholders(const QString &text) {
    static const QRegularExpression placeholder("%@|%[0-9]*l*[dif]");
    QStringList found;
    for (auto all = placeholder.globalMatch(text); all.hasNext();)
        found += all.next().captured();
    found.sort();
    return found;
}

} // namespace

class KVTranslationsTest : public KVTestCase {};

TEST_F(KVTranslationsTest, GermanSaysAllThatEnglishSays) {
    const auto german = translations(KV_TEST_DIRECTORY "/../resources/translations/kalvora_de.ts");
    const auto texts = textsOfTheProgram();
    EXPECT_GT(texts.size(), 150);
    for (const QString &text : texts)
        EXPECT_FALSE(german.value(text).isEmpty()) << text.toStdString();
    for (const auto &[source, translation] : german.asKeyValueRange()) {
        EXPECT_EQ(placeholders(source), placeholders(translation)) << source.toStdString();
        EXPECT_EQ(source.contains('&'), translation.contains('&')) << source.toStdString();
        EXPECT_EQ(source.endsWith("..."), translation.endsWith("...")) << source.toStdString();
    }
}
