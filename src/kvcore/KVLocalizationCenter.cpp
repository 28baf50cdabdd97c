#include "kvcore/KVLocalizationCenter.h"

#include "kvcore/KVLog.h"
#include "kvcore/KVText.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

void KVLocalizationCenter::loadSystemLanguage() {
    static QTranslator translator;
    const QStringList folders{QStringLiteral(":/translations"),
                              QCoreApplication::applicationDirPath() +
                                  "/../share/kalvora/resources/translations"};
    for (const QString &folder : folders) {
        if (!translator.load(QLocale(), QStringLiteral("kalvora"), QStringLiteral("_"), folder)) continue;
        QCoreApplication::installTranslator(&translator);
        KVLog("Language: " + translator.language());
        return;
    }
}

QString KVLocalizationCenter::localized(const char *key) {
    return QCoreApplication::translate("Kalvora", key);
}

QString KVLocalizationCenter::localized(const char *key, const QVariantList &arguments) {
    return KVText::format(localized(key), arguments);
}
