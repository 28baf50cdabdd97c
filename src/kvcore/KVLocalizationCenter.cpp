#include "kvcore/KVLocalizationCenter.h"

#include "kvcore/KVLog.h"
#include "kvcore/KVText.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

/// The dialogs that the toolkit brings along speak the same language, where its translations are installed.
void loadToolkitLanguage() {
    static QTranslator translator;
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (translator.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(&translator);
}

} // namespace

void KVLocalizationCenter::loadSystemLanguage() {
    static QTranslator translator;
    const QStringList folders{QStringLiteral(":/translations"),
                              QCoreApplication::applicationDirPath() +
                                  "/../share/kalvora/resources/translations"};
    // English is a translation too: its keys are fixed, and some name what this desktop calls otherwise.
    const QLocale english(QLocale::English);
    for (const QString &folder : folders) {
        const auto load = [&](const QLocale &locale) {
            return translator.load(locale, QStringLiteral("kalvora"), QStringLiteral("_"), folder);
        };
        if (!load(QLocale()) && !load(english)) continue;
        QCoreApplication::installTranslator(&translator);
        KVLog("Language: " + translator.language());
        loadToolkitLanguage();
        return;
    }
}

QString KVLocalizationCenter::localized(const char *key) {
    return QCoreApplication::translate("Kalvora", key);
}

QString KVLocalizationCenter::localized(const char *key, const QVariantList &arguments) {
    return KVText::format(localized(key), arguments);
}
