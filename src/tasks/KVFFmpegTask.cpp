#include "tasks/KVFFmpegTask.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "platform/KVFileManager.h"
#include "platform/KVResources.h"
#include "tasks/KVFFmpegDialect.h"
#include "util/KVTempDirectory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringDecoder>

#include <cmath>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

QString resourceOrEnd(const QString &name, const QString &type) {
    const auto path = KVResources::path(name, type);
    if (!path) KVFatalError("The resource " + (type.isEmpty() ? name : name + "." + type) + " is missing.");
    return *path;
}

fs::path filePath(const QString &path) {
    return fs::path(QFile::encodeName(path).toStdString());
}

/// The folder that the child's FONTCONFIG_PATH names.
QUrl fontsDirectory() {
    const auto support = KVFileManager::applicationSupportDirectory();
    if (!support) KVFatalError(support.error().reason);
    return KVFileManager::appendingPathComponent(
        KVFileManager::appendingPathComponent(*support, "com.ostrelane.Kalvora"), "fonts");
}

bool isUpToDate(const fs::path &target, const fs::path &source) {
    std::error_code failure;
    const auto targetDate = fs::last_write_time(target, failure);
    if (failure) return false;
    const auto sourceDate = fs::last_write_time(source, failure);
    return !failure && sourceDate <= targetDate;
}

/// Copies `source` with its date under a name of its own and renames it into place: a child that reads the
/// old file, and another task that does the same, are not disturbed.
KVResult<void> replaceFile(const fs::path &target, const fs::path &source) {
    fs::path fresh = target;
    fresh += filePath("." + KVFileManager::uniqueName());
    std::error_code failure;
    fs::copy_file(source, fresh, failure);
    if (!failure) {
        std::error_code ignored;
        fs::last_write_time(fresh, fs::last_write_time(source, ignored), ignored);
        if (fs::is_directory(target, ignored)) fs::remove_all(target, ignored); // no rename over a folder
        fs::rename(fresh, target, failure);
    }
    if (!failure) return {};
    std::error_code ignored;
    fs::remove(fresh, ignored);
    return tl::unexpected(KVPOSIXError(QFile::decodeName(target.c_str()), failure.value()));
}

/// The children do not know the user's home folder, so they get their font cache from here. Without one each
/// child would look through all fonts anew; a failure costs that time only.
void writeFontCachePlace(const QString &directory) {
    const QString cache =
        QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + "/kalvora/fontconfig";
    const QByteArray content = ("<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM "
                                "\"urn:fontconfig:fonts.dtd\">\n<fontconfig><cachedir>" +
                                cache.toHtmlEscaped() + "</cachedir></fontconfig>\n")
                                   .toUtf8();
    const QString path = directory + "/cache.conf";
    QFile written(path);
    if (written.open(QIODevice::ReadOnly) && written.readAll() == content) return;
    QDir().mkpath(cache);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        KVLog("Could not write " + path + ": " + file.errorString());
}

KVError notInstalledError(const KVError &launchError) {
    KVError error = launchError;
    error.reason = KVLocalizationCenter::localized("%@ is not installed. Install the package \"%@\".",
                                                   {"ffmpeg", "ffmpeg"});
    return error;
}

} // namespace

KVResult<std::shared_ptr<KVFFmpegTask>> KVFFmpegTask::create(const QStringList &arguments) {
    const auto fonts = preparedFontsDirectory();
    if (!fonts) return tl::unexpected(fonts.error());
    const std::shared_ptr<KVFFmpegTask> task(new KVFFmpegTask(arguments));
    task->_concreteTask.setArguments(arguments);
    task->_concreteTask.setEnvironment({{"FONTCONFIG_PATH", *fonts}});
    task->_concreteTask.setLaunchPath(resourceOrEnd("ffmpeg", {}));
    task->_handlePipeChange();
    return task;
}

KVResult<QString> KVFFmpegTask::preparedFontsDirectory() {
    const QUrl directory = fontsDirectory();
    if (const auto made = KVFileManager::createDirectory(directory); !made)
        return tl::unexpected(made.error());
    const fs::path target = filePath(directory.toLocalFile() + "/fonts.conf");
    const fs::path source = filePath(resourceOrEnd("fonts", "conf"));
    if (!isUpToDate(target, source))
        if (const auto copied = replaceFile(target, source); !copied) return tl::unexpected(copied.error());
    writeFontCachePlace(directory.toLocalFile());
    return directory.toLocalFile();
}

KVFFmpegTask::KVFFmpegTask(const QStringList &arguments)
    : _arguments(arguments) {}

QStringList KVFFmpegTask::arguments() const {
    return _arguments;
}

QString KVFFmpegTask::launchPath() const {
    return _concreteTask.launchPath();
}

KVProcess &KVFFmpegTask::process() {
    return _concreteTask;
}

KVResult<void> KVFFmpegTask::launch() {
    const auto &capabilities = KVFFmpegCapabilities::of(launchPath());
    const QStringList toolArguments = KVFFmpegDialect::argumentsForTool(_arguments, capabilities);
    if (toolArguments != _arguments) KVLog("The tool gets: " + toolArguments.join(' '));
    _concreteTask.setArguments(toolArguments);
    auto launched = _concreteTask.launch();
    // A link to a tool that is not there exists, but leads nowhere.
    if (!launched && !QFileInfo::exists(launchPath()))
        launched = tl::unexpected(notInstalledError(launched.error()));
    _launchError = launched ? std::nullopt : std::optional(launched.error());
    return launched;
}

std::shared_ptr<KVFileHandle> KVFFmpegTask::fileHandle() const {
    return _fileHandle;
}

bool KVFFmpegTask::isSilenced() const {
    return _isSilenced;
}

void KVFFmpegTask::setIsSilenced(bool isSilenced) {
    _isSilenced = isSilenced;
    _handlePipeChange();
}

bool KVFFmpegTask::usesStandardOutput() const {
    return _usesStandardOutput;
}

void KVFFmpegTask::setUsesStandardOutput(bool usesStandardOutput) {
    _usesStandardOutput = usesStandardOutput;
    _handlePipeChange();
}

void KVFFmpegTask::_handlePipeChange() {
    using Stream = KVProcess::Stream;
    if (_isSilenced) {
        _concreteTask.setStandardError(Stream::nullDevice);
        _concreteTask.setStandardOutput(Stream::nullDevice);
        _fileHandle = nullptr;
    } else if (_usesStandardOutput) {
        // Nobody reads the pipe that standard error had: a chatty child would block on it for ever.
        _concreteTask.setStandardError(Stream::nullDevice);
        _fileHandle = _concreteTask.setStandardOutput(Stream::pipe);
    } else {
        _fileHandle = _concreteTask.setStandardError(Stream::pipe);
    }
}

QByteArray KVFFmpegTask::launchAndGetAllOutputData(const std::stop_token &stop) {
    return launch() ? _allOutputData(stop) : QByteArray();
}

QByteArray KVFFmpegTask::_allOutputData(const std::stop_token &stop) {
    const std::stop_callback ending(stop, [this] { _concreteTask.kill(); });
    QByteArray output;
    if (_fileHandle)
        for (QByteArray part = _fileHandle->availableData(); !part.isEmpty();
             part = _fileHandle->availableData())
            output += part;
    _concreteTask.waitUntilExit();
    return output;
}

const std::optional<KVError> &KVFFmpegTask::launchError() const {
    return _launchError;
}

QString KVFFmpegTask::logText(const QByteArray &output) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(output);
    return decoder.hasError() ? QStringLiteral("nil") : text;
}

KVResult<QUrl> KVFFmpegTask::generateRandomImage(const KVStillFrameSource &source,
                                                 const std::stop_token &stop) {
    const QUrl image =
        KVFileManager::appendingPathComponent(KVTempDirectoryURL(), KVFileManager::uniqueName() + ".jpg");
    const double seconds = std::trunc(source.stillFrameVideoSeconds().value_or(0));
    const int offset = seconds <= 89 ? static_cast<int>(seconds) / 2 : 90;
    const auto task = create({"-ss", QString::number(offset), "-i", source.stillFramePath(), "-frames:v", "1",
                              image.toLocalFile()});
    if (!task) return tl::unexpected(task.error());
    if ((*task)->launch()) KVLog(logText((*task)->_allOutputData(stop)));
    return image;
}
