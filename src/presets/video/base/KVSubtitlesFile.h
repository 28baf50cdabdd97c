#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <optional>

/// External subtitles on their way to the tool, which is given UTF-8 only.
namespace KVSubtitlesFile {

/// Writes the text of `url`, which is in `encoding` ("UTF-8", "windows-1251"), as UTF-8 into a new file of
/// the temporary folder with the same extension, and answers its path. Nothing, and a log line, where the
/// file cannot be read, is blank, is not in that encoding or cannot be written whole. Any thread.
std::optional<QString> convertedToUTF8(const QUrl &url, const QString &encoding);

/// `bytes` as text; nothing where a byte means nothing in `encoding`, or where the encoding is unknown.
std::optional<QString> decoded(const QByteArray &bytes, const QString &encoding);

/// The same for the beginning of a longer text: a character that is cut off at the end of `bytes` is dropped.
std::optional<QString> decodedBeginning(const QByteArray &bytes, const QString &encoding);

/// The file's text; empty if it cannot be read or is not in `encoding`. Writes nothing.
std::optional<QString> text(const QUrl &url, const QString &encoding);

/// True if there is nothing to read in it.
bool isBlank(QString text);

using FailureObserver = std::function<void(const QUrl &url, const QString &reason)>;
/// Told of every file that could not be converted, one at a time, on the thread where it happens: the video
/// is converted without those subtitles. For a front end that has no log.
void setFailureObserver(FailureObserver tell);

/// Collects, as long as it lives, what could not be converted on its own thread. The collectors of a thread
/// are destroyed in the reverse order of their construction.
class FailureCollector {
  public:
    FailureCollector();
    ~FailureCollector();
    FailureCollector(const FailureCollector &) = delete;
    FailureCollector &operator=(const FailureCollector &) = delete;

    /// Returns one sentence for each file, in the user's language.
    QStringList warnings() const { return _warnings; }
    void add(const QUrl &url, const QString &reason);

  private:
    FailureCollector *_previous;
    QStringList _warnings;
};

} // namespace KVSubtitlesFile
