#pragma once

#include "kvcore/KVError.h"

#include <QDateTime>
#include <QList>
#include <QStringList>
#include <QUrl>

#include <optional>

/// What the program asks of the file system. Any thread may call it.
namespace KVFileManager {

bool isReachable(const QUrl &url); ///< Something exists there (a dangling link does not).
bool isDirectory(const QUrl &url);
/// Neither a file nor a folder: a pipe, a socket, a device. Reading it could take for ever.
bool isSpecialFile(const QUrl &url);
bool isReadable(const QUrl &url);
bool isWritable(const QUrl &url);
qint64 fileSize(const QUrl &url); ///< Bytes; 0 where there is no file.
std::optional<QDateTime> modificationDate(const QUrl &url);

/// All members of a folder, hidden ones included, "." and ".." not, sorted by name so that the order is the
/// same everywhere. An error names the folder and the reason.
///
/// A name that is not valid UTF-8 has no URL and is left out: ask `undecodableNames` for those.
KVResult<QList<QUrl>> contentsOfDirectory(const QUrl &url);

/// The names in a folder that `contentsOfDirectory` has to leave out, each in a form that can be shown: a
/// byte that is no text reads "\xE9". Empty where the folder cannot be read.
QStringList undecodableNames(const QUrl &folder);

/// Makes the folder with its parents; fine where it exists.
KVResult<void> createDirectory(const QUrl &url);

/// Removes a file or a folder with all that is in it; a link is removed, never followed.
KVResult<void> removeItem(const QUrl &url);

/// Copies a file (of a link what it names) or a folder. An existing target is an error and stays as it is; no
/// partial file is left behind.
KVResult<void> copyItem(const QUrl &from, const QUrl &to);

/// `base` with `ending` behind it, as a file may be called: a name that is too long for the file system loses
/// the last characters of `base`.
QString fittingName(const QString &base, const QString &ending);

/// A unique identifier for a file's name.
QString uniqueName();

/// The user's folder for the data of applications, made if need be; an error where it cannot be made.
KVResult<QUrl> applicationSupportDirectory();

/// The system's folder for temporary files.
QUrl temporaryDirectory();

/// The folder that holds `url`.
QUrl deletingLastPathComponent(const QUrl &url);
QUrl appendingPathComponent(const QUrl &folder, const QString &name);
/// Last path component.
QString lastPathComponent(const QUrl &url);
/// Without the extension: "a.b.mov" gives "a.b"; ".mov" stays.
QString deletingPathExtension(const QString &name);
/// The text behind the last dot of the last component: "mov"; empty where there is none, also for ".mov".
QString pathExtension(const QUrl &url);
QUrl deletingPathExtension(const QUrl &url);
/// `url` with "." and the extension added to its last component; an empty extension changes nothing.
QUrl appendingPathExtension(const QUrl &url, const QString &extension);

} // namespace KVFileManager
