#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

/// External subtitles on their way to the tool, which is given UTF-8 only.
namespace KVSubtitlesFile {

/// Writes the text of `url`, which is in `encoding` ("UTF-8", "windows-1251"), as UTF-8 into a new file of
/// the temporary folder with the same extension, and answers its path. Nothing, and a log line, where the
/// file cannot be read, is not in that encoding or cannot be written. Any thread.
std::optional<QString> convertedToUTF8(const QUrl &url, const QString &encoding);

/// `bytes` as text; nothing where a byte means nothing in `encoding`, or where the encoding is unknown.
std::optional<QString> decoded(const QByteArray &bytes, const QString &encoding);

} // namespace KVSubtitlesFile
