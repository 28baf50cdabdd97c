#pragma once

#include "kvcore/KVPreferences.h"

#include <QUrl>

#include <optional>

/// A durable reference to a file. This system has no access scopes, so the data is the file's URL.
namespace KVBookmark {
/// Nothing for a URL that is no file.
std::optional<QByteArray> data(const QUrl &url);
/// Nothing where the data is no bookmark.
std::optional<QUrl> resolve(const QByteArray &data);
} // namespace KVBookmark

/// Files that the preferences refer to, each by its key. Any thread may call it.
class KVAppScopeBookmarksManager {
  public:
    static void setURL(const QUrl &url, const KVPreferences::Key &key);
    /// Nothing where no bookmark is stored. A stored text (a path or a "file:" URL, as a person types it)
    /// counts too.
    static std::optional<QUrl> url(const KVPreferences::Key &key);
    static void removeURL(const KVPreferences::Key &key);
};
