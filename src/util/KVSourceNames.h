#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <utility>

/// The names of files that conversions of this process have still to read. No output may get such a name,
/// even if the file is missing: it may have been moved away for a moment, and ffmpeg would read and write one
/// file. The names are released with the object. Any thread.
class KVSourceNames {
  public:
    explicit KVSourceNames(const QList<QUrl> &files);
    ~KVSourceNames();
    KVSourceNames(const KVSourceNames &) = delete;
    KVSourceNames &operator=(const KVSourceNames &) = delete;

    /// True if `url` names one of these files, whatever links its folder is reached by. For a file that is
    /// missing, upper and lower case are the same: its file system may not distinguish them.
    static bool contain(const QUrl &url);

    /// True if the existing file at `url` is one of these files under whatever name: by a link or a hard
    /// link.
    static bool containFileAt(const QUrl &url);

  private:
    /// The file's name in lower case, and the whole path.
    using Name = std::pair<QString, QString>;

    QList<Name> _names;
};
