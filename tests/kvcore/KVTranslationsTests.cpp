#include "controllers/KVTextEncodings.h"
#include "core/KVFailureTable.h"
#include "kvcore/KVLocalizationCenter.h"
#include "presets/KVPreset.h"
#include "support/KVTestCase.h"
#include "util/KVByteCount.h"
#include "util/KVMediaFileType.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>
#include <QXmlStreamReader>

#include <limits>
#include <mutex>

namespace {

const QString sourceFolder = QStringLiteral(KV_TEST_DIRECTORY "/../src");

// Names of presets are kept in the preferences and typed on the command line: they are the same in every
// language.
bool isNameOfAPreset(const QString &source, const QString &beforeText) {
    return source.contains("presets/") && beforeText.contains("defaultName() const");
}

QString withoutEscapes(QString text) {
    text.replace("\\n", "\n").replace("\\t", "\t").replace("\\\"", "\"");
    static const QRegularExpression codePoint(R"(\\u([0-9a-fA-F]{4}))");
    for (auto match = codePoint.match(text); match.hasMatch(); match = codePoint.match(text))
        text.replace(match.capturedStart(), match.capturedLength(),
                     QChar(match.captured(1).toUShort(nullptr, 16)));
    return text;
}

/// The texts among `code`: adjacent literals are one text.
QStringList literals(const QString &code) {
    static const QRegularExpression adjacent(R"re((?:"(?:[^"\\]|\\.)*"\s*)+)re");
    static const QRegularExpression literal(R"re("((?:[^"\\]|\\.)*)")re");
    QStringList texts;
    for (auto all = adjacent.globalMatch(code); all.hasNext();) {
        QString text;
        const QString parts = all.next().captured();
        for (auto part = literal.globalMatch(parts); part.hasNext();)
            text += part.next().captured(1);
        texts += withoutEscapes(text);
    }
    return texts;
}

/// The code between a bracket, in front of `start`, and its partner. Brackets in literals do not count.
QString inBrackets(const QString &code, qsizetype start) {
    int depth = 1;
    bool isInLiteral = false;
    qsizetype at = start;
    for (; at < code.size() && depth > 0; ++at) {
        const QChar character = code.at(at);
        if (isInLiteral) {
            if (character == '\\') ++at;
            isInLiteral = character != '"';
        } else if (character == '"') {
            isInLiteral = true;
        } else if (character == '(' || character == '{') {
            ++depth;
        } else if (character == ')' || character == '}') {
            --depth;
        }
    }
    return code.mid(start, at - start - 1);
}

/// The arguments without the contents of nested brackets: the list that fills the placeholders.
QString withoutInnerBrackets(const QString &arguments) {
    QString outer;
    bool isInLiteral = false;
    for (qsizetype at = 0; at < arguments.size(); ++at) {
        const QChar character = arguments.at(at);
        outer += character;
        if (isInLiteral) {
            if (character == '\\' && at + 1 < arguments.size()) outer += arguments.at(++at);
            isInLiteral = character != '"';
        } else if (character == '"') {
            isInLiteral = true;
        } else if (character == '(' || character == '{') {
            at += inBrackets(arguments, at + 1).size();
        }
    }
    return outer;
}

void forEachSource(const std::function<void(const QString &path, const QString &code)> &use) {
    QDirIterator files(sourceFolder, {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        // The command line speaks English only.
        if (file.fileName().contains("/src/cli/") || !file.open(QIODevice::ReadOnly)) continue;
        use(QDir(sourceFolder).relativeFilePath(file.fileName()), QString::fromUtf8(file.readAll()));
    }
}

/// The texts in calls that localise, those of small functions and lambdas that hand their text on included.
QSet<QString> textsInCalls() {
    static const QRegularExpression call(
        R"re((?<![.>])\b(?:localized|text|textWithNames|counted|add|refuse|refusal|option|_side|_qualityOption|_item<[^>]*>|_add|_clearMenu|setButton|_notify|_change|_remove|mayMakeOne)\(|\b(?:Tag|WritingSystem)\{)re");
    QSet<QString> texts;
    forEachSource([&](const QString &path, const QString &code) {
        for (auto calls = call.globalMatch(code); calls.hasNext();) {
            const auto match = calls.next();
            const qsizetype start = match.capturedStart();
            if (isNameOfAPreset(path, code.mid(std::max<qsizetype>(0, start - 90), 90))) continue;
            for (const QString &text : literals(withoutInnerBrackets(inBrackets(code, match.capturedEnd()))))
                texts.insert(text);
        }
    });
    texts.remove({});
    return texts;
}

/// Where texts of tables are localised: code that hands over something else than a literal. Each place is
/// covered by the calls above, by the tables below or by `textsAskedForAtRunTime`.
QSet<QString> filesThatLocalizeVariables() {
    static const QRegularExpression call(R"re(\blocalized\()re");
    QSet<QString> paths;
    forEachSource([&](const QString &path, const QString &code) {
        for (auto calls = call.globalMatch(code); calls.hasNext();)
            if (!inBrackets(code, calls.next().capturedEnd()).section(',', 0, 0).contains('"'))
                paths.insert(path);
    });
    return paths;
}

/// The texts of code that localises what a constant or another function names.
QSet<QString> textsInNamedPlaces() {
    static const QRegularExpression place(R"re((?:const char \*(?:const )?\w+ =|return)\s*([^;]*);)re");
    static const QRegularExpression sentence("\\.$|%@");
    QSet<QString> texts;
    forEachSource([&](const QString &path, const QString &code) {
        if (path != "core/KVFailureCause.cpp" && path != "queues/KVRowEdits.cpp") return;
        for (auto places = place.globalMatch(code); places.hasNext();)
            for (const QString &text : literals(places.next().captured(1)))
                if (text.contains(sentence) && !text.contains("%1")) texts.insert(text); // "%1": for scripts
    });
    return texts;
}

QSet<QString> textsOfFailures() {
    QSet<QString> texts;
    for (const KVFailureRow &row : KVFailureTable::rows())
        for (const char *text : {row.text, row.remedy, row.alertText, row.alertRemedy})
            if (text) texts.insert(QString::fromUtf8(text));
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

/// Records the texts that are asked for and translates nothing. Any thread.
class RecordingTranslator : public QTranslator {
  public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *text, const char *, int) const override {
        const std::scoped_lock lock(_mutex);
        _texts.insert(QString::fromUtf8(text));
        return {};
    }
    QSet<QString> texts() const {
        const std::scoped_lock lock(_mutex);
        return _texts;
    }

  private:
    mutable std::mutex _mutex;
    mutable QSet<QString> _texts;
};

/// The texts of tables that are reached by calling what shows them.
QSet<QString> textsAskedForAtRunTime() {
    const auto presets = KVPreset::allPresets(); // their names are the same in every language
    RecordingTranslator recorder;
    QCoreApplication::installTranslator(&recorder);
    for (const KVMediaFileType type : KVMediaFileTypes::allTypes)
        KVMediaFileTypes::localizedName(type);
    for (const auto &preset : presets) {
        preset->localizedFormatDescription();
        preset->settings();
    }
    for (qint64 bytes = 1; bytes < std::numeric_limits<qint64>::max() / 1000; bytes *= 1000)
        KVByteCountText(bytes);
    KVTextEncodingsThatDecode("plain text");
    KVTextEncodingsThatDecode(QByteArray(300, '\xe4'));
    QCoreApplication::removeTranslator(&recorder);
    return recorder.texts();
}

/// Loads the translation that is shipped.
void load(QTranslator &translator, const QString &language) {
    ASSERT_TRUE(
        translator.load("kalvora_" + language, KV_BUILD_DIRECTORY "/share/kalvora/resources/translations"));
}

} // namespace

class KVTranslationsTest : public KVTestCase {};

TEST_F(KVTranslationsTest, GermanHasEveryTextOfTheProgram) {
    QTranslator german;
    load(german, "de");
    const auto inCalls = textsInCalls();
    const auto atRunTime = textsAskedForAtRunTime();
    EXPECT_GT(inCalls.size(), 200);
    EXPECT_GT(atRunTime.size(), 100);
    const auto ofFailures = textsOfFailures();
    EXPECT_GT(ofFailures.size(), 50);
    for (const QString &text : inCalls + textsInNamedPlaces() + ofFailures + atRunTime)
        EXPECT_FALSE(german.translate("Kalvora", text.toUtf8().constData()).isEmpty()) << text.toStdString();
}

TEST_F(KVTranslationsTest, TranslationsKeepPlaceholdersShortcutsAndDots) {
    for (const char *language : {"de", "en"}) {
        const auto texts = translations(
            QStringLiteral(KV_TEST_DIRECTORY "/../resources/translations/kalvora_%1.ts").arg(language));
        EXPECT_FALSE(texts.isEmpty());
        for (const auto &[source, translation] : texts.asKeyValueRange()) {
            EXPECT_EQ(placeholders(source), placeholders(translation)) << source.toStdString();
            EXPECT_EQ(source.contains('&'), translation.contains('&')) << source.toStdString();
            EXPECT_EQ(source.endsWith("..."), translation.endsWith("...")) << source.toStdString();
        }
    }
}

TEST_F(KVTranslationsTest, EnglishTranslatesOnlyTextsThatExist) {
    const QString path = KV_TEST_DIRECTORY "/../resources/translations/kalvora_%1.ts";
    const auto german = translations(path.arg("de"));
    for (const QString &source : translations(path.arg("en")).keys())
        EXPECT_TRUE(german.contains(source)) << source.toStdString();
}

TEST_F(KVTranslationsTest, EveryPlaceThatLocalizesATableIsKnown) {
    // A new one needs a line here, and its texts a way into one of the sets above.
    const QSet<QString> known{
        "controllers/KVFailureDetails.cpp",
        "controllers/KVRowQuestions.cpp",
        "controllers/KVRowSelection.cpp",
        "controllers/KVRunNotifications.cpp",
        "core/KVFailureCause.cpp",
        "main_ui/main_window/details/KVFailureDetailsPanel.cpp",
        "presets/video/base/KVSubtitleFonts.cpp",
        "queues/KVRowEdits.cpp",
        "controllers/KVApplicationController.cpp",
        "controllers/KVConversionTableRow.cpp",
        "controllers/KVFileIntake.cpp",
        "controllers/KVIntakeRefusals.cpp",
        "controllers/KVPresetPopUpButton.cpp",
        "controllers/KVTextEncodings.cpp",
        "core/KVErrorCenter.cpp",
        "kvcore/KVLocalizationCenter.cpp",
        "kvcore/KVLocalizationCenter.h",
        "main_ui/KVWhatsNewWindowController.cpp",
        "main_ui/main_window/KVLook.cpp",
        "main_ui/main_window/KVMainMenu.cpp",
        "main_ui/main_window/history/KVHistoryView.cpp",
        "presets/audio/base/KVTabulatedAudioPreset.h",
        "presets/formats/video_track/KVVideoFormat.cpp",
        "presets/settings/KVAudioQualityBasedFormatSettings.h",
        "presets/settings/KVSizeOption.h",
        "presets/video/base/KVTabulatedVideoPreset.h",
        "presets/video/other/KVCropPreset.cpp",
        "presets/video/other/KVHEVCPreset.cpp",
        "presets/video/other/KVProResPreset.cpp",
        "presets/video/other/KVRemuxPreset.cpp",
        "presets/video/other/KVTransformPreset.cpp",
        "util/KVByteCount.cpp",
        "util/KVMediaFileType.cpp",
        "video_info/media_file/KVMediaFile.cpp",
        "video_info/media_file/KVVideoFile.cpp",
    };
    for (const QString &path : filesThatLocalizeVariables() - known)
        ADD_FAILURE() << path.toStdString();
}

TEST_F(KVTranslationsTest, EnglishUsesTheWordsOfThisDesktop) {
    QTranslator english;
    load(english, "en");
    EXPECT_EQ(english.translate("Kalvora", "Show in Finder"), "Show in File Manager");
    EXPECT_TRUE(english.translate("Kalvora", "Start").isEmpty()) << "the key is the text";
    for (const QString &text : textsInCalls()) {
        const QString shown = english.translate("Kalvora", text.toUtf8().constData());
        static const QRegularExpression foreign("\\b(?:Finder|AppStore|Dock)\\b");
        EXPECT_FALSE((shown.isEmpty() ? text : shown).contains(foreign)) << text.toStdString();
    }
}
