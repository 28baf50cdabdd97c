#pragma once

#include <QString>
#include <QVariantList>

/// User-visible text. The key is the English text; a missing translation shows the key.
class KVLocalizationCenter {
  public:
    /// Installs the translation of the system's language from the application's resources; if there is none,
    /// that of English, which also serves the locale "C". Called once, on the main thread, after the
    /// application object exists.
    static void loadSystemLanguage();

    /// The text for `key` in the user's language.
    static QString localized(const char *key);

    /// The text for `key` with its conversions filled in order: see KVText::format.
    static QString localized(const char *key, const QVariantList &arguments);
};
