#include "platform/KVFileManager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringDecoder>
#include <QTextBoundaryFinder>
#include <QUuid>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <filesystem>
#include <vector>

#include <dirent.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

fs::path systemPath(const QUrl &url) {
    return url.toLocalFile().toStdString();
}

KVError failure(const QUrl &url, const std::error_code &problem) {
    return KVPOSIXError(url.toLocalFile(), problem.value());
}

bool isAccessible(const QUrl &url, int mode) {
    return ::access(QFile::encodeName(url.toLocalFile()).constData(), mode) == 0;
}

/// The names as the system has them, sorted by their bytes.
KVResult<std::vector<std::string>> namesInDirectory(const QUrl &url) {
    const QByteArray path = QFile::encodeName(url.toLocalFile());
    const std::unique_ptr<DIR, int (*)(DIR *)> folder(::opendir(path.constData()), ::closedir);
    if (!folder) return tl::unexpected(KVPOSIXError(url.toLocalFile(), errno));

    std::vector<std::string> names;
    errno = 0;
    while (const dirent *entry = ::readdir(folder.get())) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(name);
    }
    if (errno != 0) return tl::unexpected(KVPOSIXError(url.toLocalFile(), errno));
    std::ranges::sort(names);
    return names;
}

std::optional<QString> decodedName(const std::string &name) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(QByteArrayView(name.data(), static_cast<qsizetype>(name.size())));
    if (decoder.hasError()) return {};
    return text;
}

QString printableName(const std::string &name) {
    QString text;
    for (const char byte : name) {
        const auto value = static_cast<unsigned char>(byte);
        const bool isPlain = value >= 0x20 && value < 0x7f;
        text += isPlain ? QString(QChar(value))
                        : QStringLiteral("\\x%1").arg(QString::number(value, 16).toUpper(), 2, QChar('0'));
    }
    return text;
}

/// The position of the dot that begins the extension; -1 where there is none. A dot in front hides a file,
/// and the two folder names are no extensions.
qsizetype extensionDot(const QString &name) {
    const qsizetype dot = name.lastIndexOf('.');
    const bool hasOnlyDotsInFront = name.first(std::max<qsizetype>(dot, 0)).count('.') == dot;
    return dot <= 0 || hasOnlyDotsInFront ? -1 : dot;
}

QString withoutTrailingSlashes(QString path) {
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

QString decodedPath(const QUrl &url) {
    return withoutTrailingSlashes(url.path(QUrl::FullyDecoded));
}

QUrl withPath(QUrl url, const QString &path) {
    url.setPath(path, QUrl::DecodedMode);
    return url;
}

} // namespace

bool KVFileManager::isReachable(const QUrl &url) {
    return isAccessible(url, F_OK);
}

bool KVFileManager::isDirectory(const QUrl &url) {
    return QFileInfo(url.toLocalFile()).isDir();
}

bool KVFileManager::isSpecialFile(const QUrl &url) {
    const QFileInfo info(url.toLocalFile());
    return info.exists() && !info.isFile() && !info.isDir();
}

bool KVFileManager::isReadable(const QUrl &url) {
    return isAccessible(url, R_OK);
}

bool KVFileManager::isWritable(const QUrl &url) {
    return isAccessible(url, isDirectory(url) ? W_OK | X_OK : W_OK);
}

qint64 KVFileManager::fileSize(const QUrl &url) {
    return QFileInfo(url.toLocalFile()).size();
}

std::optional<QDateTime> KVFileManager::modificationDate(const QUrl &url) {
    const QDateTime date = QFileInfo(url.toLocalFile()).lastModified();
    if (!date.isValid()) return {};
    return date;
}

KVResult<QList<QUrl>> KVFileManager::contentsOfDirectory(const QUrl &url) {
    const auto names = namesInDirectory(url);
    if (!names) return tl::unexpected(names.error());
    QList<QUrl> contents;
    for (const std::string &name : *names)
        if (const auto text = decodedName(name)) contents.append(appendingPathComponent(url, *text));
    return contents;
}

QStringList KVFileManager::undecodableNames(const QUrl &folder) {
    QStringList result;
    const auto names = namesInDirectory(folder);
    if (!names) return result;
    for (const std::string &name : *names)
        if (!decodedName(name)) result.append(printableName(name));
    return result;
}

KVResult<void> KVFileManager::createDirectory(const QUrl &url) {
    std::error_code problem;
    fs::create_directories(systemPath(url), problem);
    if (!problem && !isDirectory(url)) problem = std::make_error_code(std::errc::not_a_directory);
    if (problem) return tl::unexpected(failure(url, problem));
    return {};
}

KVResult<void> KVFileManager::removeItem(const QUrl &url) {
    std::error_code problem;
    const auto count = fs::remove_all(systemPath(url), problem);
    if (!problem && count == 0) problem = std::make_error_code(std::errc::no_such_file_or_directory);
    if (problem) return tl::unexpected(failure(url, problem));
    return {};
}

KVResult<void> KVFileManager::copyItem(const QUrl &from, const QUrl &to) {
    const fs::path target = systemPath(to);
    std::error_code problem;
    if (fs::exists(fs::symlink_status(target, problem)))
        return tl::unexpected(KVPOSIXError(to.toLocalFile(), EEXIST));

    problem.clear();
    if (fs::is_directory(systemPath(from)))
        fs::copy(systemPath(from), target, fs::copy_options::recursive | fs::copy_options::copy_symlinks,
                 problem);
    else
        fs::copy_file(systemPath(from), target, problem);
    if (!problem) return {};
    std::error_code ignored;
    fs::remove_all(target, ignored);
    return tl::unexpected(failure(from, problem));
}

QString KVFileManager::fittingName(const QString &base, const QString &ending) {
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, base);
    characters.toEnd();
    const auto isTooLong = [&] {
        return QFile::encodeName(base.first(characters.position()) + ending).size() > NAME_MAX;
    };
    while (characters.position() > 0 && isTooLong())
        characters.toPreviousBoundary();
    return base.first(characters.position()) + ending;
}

QString KVFileManager::uniqueName() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

KVResult<QUrl> KVFileManager::applicationSupportDirectory() {
    const QUrl url =
        QUrl::fromLocalFile(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    const auto made = createDirectory(url);
    if (!made) return tl::unexpected(made.error());
    return url;
}

QUrl KVFileManager::temporaryDirectory() {
    return QUrl::fromLocalFile(QDir::tempPath());
}

QUrl KVFileManager::deletingLastPathComponent(const QUrl &url) {
    const QString path = decodedPath(url);
    return withPath(url, withoutTrailingSlashes(path.first(path.lastIndexOf('/') + 1)));
}

QUrl KVFileManager::appendingPathComponent(const QUrl &folder, const QString &name) {
    const QString path = decodedPath(folder);
    return withPath(folder, path.endsWith('/') ? path + name : path + "/" + name);
}

QString KVFileManager::lastPathComponent(const QUrl &url) {
    return decodedPath(url).section('/', -1);
}

QString KVFileManager::deletingPathExtension(const QString &name) {
    const qsizetype dot = extensionDot(name);
    return dot < 0 ? name : name.first(dot);
}

QString KVFileManager::pathExtension(const QUrl &url) {
    const QString name = lastPathComponent(url);
    const qsizetype dot = extensionDot(name);
    return dot < 0 ? QString() : name.sliced(dot + 1);
}

QUrl KVFileManager::deletingPathExtension(const QUrl &url) {
    return appendingPathComponent(deletingLastPathComponent(url),
                                  deletingPathExtension(lastPathComponent(url)));
}

QUrl KVFileManager::appendingPathExtension(const QUrl &url, const QString &extension) {
    return extension.isEmpty() ? url : withPath(url, decodedPath(url) + "." + extension);
}
