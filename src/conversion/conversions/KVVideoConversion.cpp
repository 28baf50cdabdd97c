#include "conversion/conversions/KVVideoConversion.h"

#include "conversion/conversions/KVDVDAuthoringDocument.h"
#include "conversion/conversions/KVDVDAuthoringProgress.h"
#include "conversion/conversions/KVDiscTool.h"
#include "conversion/conversions/KVResultCheck.h"
#include "core/KVHistoryCenter.h"
#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVMainThread.h"
#include "kvcore/KVText.h"
#include "platform/KVFileManager.h"
#include "platform/KVUserQuestions.h"
#include "presets/video/other/KVDVDPreset.h"
#include "util/KVOutputClaim.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVTempDirectory.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QFile>
#include <QStorageInfo>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <chrono>

namespace {

const char *const unnamedDisc = "Kalvora DVD";
constexpr int emptyImageStatus = 1;

/// The tool that makes the disc says that it could not write, and takes the wrong cause for it.
QString causeOfFailedWrite(const QString &toolOutput) {
    if (!toolOutput.contains("-- writing data")) return {};
    constexpr qint64 smallRoom = 1 << 20; // less than the tool writes at once
    const QString folder = KVTempDirectoryPath();
    if (QStorageInfo(folder).bytesAvailable() < smallRoom) return folder + ": No space left on device\n";
    return "The disc cannot be written into the temporary folder " + folder + ".\n";
}

bool isASCIILetterOrDigit(QChar character) {
    return character.unicode() < 128 && character.isLetterOrNumber();
}

} // namespace

// The plan

void KVVideoConversion::start() {
    const auto files = mediaFiles();
    {
        const std::scoped_lock lock(_discMutex);
        if (_dvdName == unnamedDisc && !files.isEmpty())
            _dvdName =
                KVFileManager::deletingPathExtension(KVFileManager::lastPathComponent(files.first()->url()));
    }
    KVAudioConversion::start();
}

int KVVideoConversion::numberOfTasks() const {
    return _dvdPreset() ? static_cast<int>(mediaFiles().size()) + 2 : 1;
}

bool KVVideoConversion::performTaskNumber(int number) {
    const auto preset = _dvdPreset();
    if (!preset) return KVAudioConversion::performTaskNumber(number);

    if (number == 0) {
        _stitchingTemporaryURL =
            KVFileManager::appendingPathComponent(KVTempDirectoryURL(), KVFileManager::uniqueName());
        if (const auto made = KVFileManager::createDirectory(*_stitchingTemporaryURL); !made) {
            _recordError({}, made.error().reason, 1);
            return false;
        }
    }

    const auto &files = _inWork().files;
    if (number < files.size()) {
        const bool isDone = convertFiles({files[number]}, *_stitchingTemporaryURL, preset, false);
        if (const auto title = outputURL(); isDone && title) _titles += *title;
        return isDone;
    }
    if (number == files.size()) return _authorDVD();
    if (number == files.size() + 1) return _createISOImage();
    KVLog("There is no task " + QString::number(number));
    return false;
}

std::shared_ptr<KVDVDPreset> KVVideoConversion::_dvdPreset() const {
    const auto running = snapshot();
    return std::dynamic_pointer_cast<KVDVDPreset>(running ? running->preset : presetInForce());
}

/// Files that are joined lose their external subtitles.
void KVVideoConversion::_warnOfMissingSubtitles(const KVAudioFileList &files) {
    if (files.size() < 2) return;
    for (const auto &file : files)
        if (const auto video = std::dynamic_pointer_cast<KVVideoFile>(file); video && video->subtitlesFileURL)
            addWarning(KVLocalizationCenter::localized(
                "The subtitles %@ were left out, since several files were joined.",
                {video->subtitlesFileURL->toLocalFile()}));
}

void KVVideoConversion::_handleTaskOutputForMediaFiles(const KVAudioFileList &files) {
    _warnOfMissingSubtitles(files);
    const auto video = files.isEmpty() ? nullptr : std::dynamic_pointer_cast<KVVideoFile>(files.first());
    if (video && video->subtitlesFileURL) {
        setStatusString(KVLocalizationCenter::localized("Preparing subtitles..."));
        notifyDelegatesAboutProgress();
        KVMainThread::after(0.5, [self = shared_from_this()] {
            if (self->isExecuting()) self->setStatusString({});
        });
    }
    KVAudioConversion::_handleTaskOutputForMediaFiles(files);
}

// Authoring

bool KVVideoConversion::_authorDVD() {
    setStatusString(KVLocalizationCenter::localized("Putting files together"));
    const auto tool = std::make_shared<KVDiscTool>("dvdauthor", "dvdauthor");
    const QUrl description =
        KVFileManager::appendingPathComponent(*_stitchingTemporaryURL, KVFileManager::uniqueName() + ".xml");
    QFile document(description.toLocalFile());
    if (document.open(QFile::WriteOnly)) document.write(KVDVDAuthoringDocument::forFiles(_titles));
    document.close(); // without it the tool says what is missing

    tool->process().setArguments({"-x", description.toLocalFile(), "-o", _dvdFolderURL().toLocalFile()});
    tool->process().setEnvironment({{"VIDEO_FORMAT", _videoFormatOfDisc()}});
    _setDiscTool(tool);
    if (const auto handle = tool->launch()) _processDVDAuthoringTaskOutputFromFileHandle(*tool, *handle);
    const int status = tool->waitUntilExit();
    _setDiscTool(nullptr);
    progressOfCurrentTask = 1;
    notifyDelegatesAboutProgress();
    if (status != 0) _recordToolError(*tool, status);
    return status == 0;
}

QString KVVideoConversion::_videoFormatOfDisc() const {
    const auto preset = _dvdPreset();
    if (!preset) KVFatalError("A disc is authored with a preset for discs!");
    return preset->isNTSC() ? "NTSC" : "PAL";
}

void KVVideoConversion::_processDVDAuthoringTaskOutputFromFileHandle(KVDiscTool &tool, KVFileHandle &handle) {
    KVDVDAuthoringProgress progress;
    tool.read(handle, [&](const QString &chunk) {
        KVLog(chunk);
        const auto value = progress.value(chunk);
        if (!value) return;
        KVLog("DVDAuthorTask: Setting progress to " + QString::number(*value));
        progressOfCurrentTask = *value / 3.0;
        notifyDelegatesAboutProgress();
    });
    progressOfCurrentTask = 1;
    notifyDelegatesAboutProgress();
}

QUrl KVVideoConversion::_dvdFolderURL() const {
    return KVFileManager::appendingPathComponent(*_stitchingTemporaryURL, _dvdVolumeName());
}

QString KVVideoConversion::_dvdVolumeName() const {
    constexpr qsizetype longestName = 32;
    const QString name = dvdName().toUpper();
    QString volumeName;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, name);
    for (qsizetype begin = 0, end = 0; (end = characters.toNextBoundary()) > 0; begin = end)
        volumeName += end - begin == 1 && isASCIILetterOrDigit(name[begin]) ? name[begin] : QChar('_');
    return volumeName.left(longestName);
}

// The image

bool KVVideoConversion::_createISOImage() {
    const Image image = _image();
    if (!image) return _refuseImage();

    const auto tool = std::make_shared<KVDiscTool>("mkisofs", "genisoimage");
    tool->process().setArguments({"-dvd-video", "-V", _dvdVolumeName(), "-o", image->url().toLocalFile(),
                                  _dvdFolderURL().toLocalFile()});
    tool->process().setStandardOutput(KVProcess::Stream::nullDevice);
    KVLog("ISO Creator Launch Path: " + tool->process().launchPath());
    KVLog("ISO Creator Arguments: " + tool->process().arguments().join(' '));
    _setDiscTool(tool);
    _setOutputClaim(image);
    const int status = _runImageTool(*tool);
    _setDiscTool(nullptr);
    setOutputURL(image->url());
    KVLog("ISO Task exited with status " + QString::number(status));
    const bool isDone = _endImage(image, *tool, status);
    _setOutputClaim(nullptr);
    return isDone;
}

int KVVideoConversion::_runImageTool(KVDiscTool &tool) {
    using Clock = std::chrono::steady_clock;
    const auto handle = tool.launch();
    const auto launched = Clock::now();
    if (handle)
        tool.read(*handle, [&](const QString &chunk) {
            const double percent = KVText::doubleValue(KVText::trimmingWhitespace(chunk));
            const double elapsed = std::chrono::duration<double>(Clock::now() - launched).count();
            progressOfCurrentTask = percent / 100;
            estimatedTime = elapsed * (100 - percent) / percent;
            notifyDelegatesAboutProgress();
        });
    return tool.waitUntilExit();
}

bool KVVideoConversion::_endImage(const Image &image, KVDiscTool &tool, int status) {
    KVResultCheck::Verdict verdict;
    if (status == 0 && !image->isInPlace())
        verdict.failure = KVResultCheck::lostResultText();
    else if (status == 0)
        verdict = KVResultCheck::checkDiscImage(image->url().toLocalFile(), _dvdFolderURL().toLocalFile());
    for (const QString &warning : verdict.warnings)
        addWarning(warning);
    if (status == 0 && verdict.failure.isEmpty()) {
        image->keep();
        KVHistoryCenter::shared().addFileAndSave(image->url(), KVMediaFileType::dvd);
        return true;
    }
    setStatusString(KVLocalizationCenter::localized("Error converting."));
    progressOfCurrentTask = 1;
    notifyDelegatesAboutProgress();
    _recordToolError(tool, status == 0 ? emptyImageStatus : status, verdict.failure);
    return false;
}

bool KVVideoConversion::_refuseImage() {
    setStatusString(KVLocalizationCenter::localized("User cancelled."));
    progressOfCurrentTask = 1;
    notifyDelegatesAboutProgress();
    return false;
}

/// Claims the name of the image; null if the user gives no place.
KVVideoConversion::Image KVVideoConversion::_image() const {
    const auto folder = _imageFolder();
    if (!folder) return nullptr;
    const QString discName = dvdName().replace('/', '-'); // a name is no path
    const auto attemptAt = [&](const QString &base, const QString &ending) {
        const QString name = KVFileManager::fittingName(base, ending);
        return KVOutputClaim::attempt(KVFileManager::appendingPathComponent(*folder, name));
    };
    auto attempt = attemptAt(discName, ".iso");
    for (int counter = 1; attempt.outcome == KVOutputClaim::Outcome::nameTaken; ++counter) {
        // A percent sign in the disc's name counts as a conversion.
        const QString name = KVText::format(discName + " %02li.iso", {counter});
        const qsizetype space = name.lastIndexOf(' ');
        attempt = attemptAt(name.first(space), name.sliced(space));
    }
    const QUrl url = attempt.claim->url();
    if (KVFileManager::isWritable(KVFileManager::deletingLastPathComponent(url))) return attempt.claim;

    attempt.claim.reset();

    KVSavePanel panel;
    panel.directory = *folder;
    panel.proposedName = KVFileManager::lastPathComponent(url);
    panel.allowedExtensions = {"iso"};
    // Again where another conversion is writing.
    while (const auto chosen = KVUserQuestion::runModalOnMainThread(panel)) {
        if (auto claim = KVOutputClaim::attempt(*chosen).claim) return claim;
        if (auto claim = KVOutputClaim::replacing(*chosen)) return claim;
    }
    return nullptr;
}

std::optional<QUrl> KVVideoConversion::_imageFolder() const {
    if (auto folder = _inWork().sourceOrFixedFolder()) return folder;
    const auto chosen = KVUserQuestion::runModalOnMainThread(KVOpenPanel());
    return chosen.isEmpty() ? std::nullopt : std::optional(chosen.first());
}

// The tools

void KVVideoConversion::killChildren() {
    KVAudioConversion::killChildren();
    const std::scoped_lock lock(_discMutex);
    _isQuitting = true;
    if (_discTool) _discTool->kill();
}

void KVVideoConversion::_setDiscTool(const std::shared_ptr<KVDiscTool> &tool) {
    const std::scoped_lock lock(_discMutex);
    _discTool = tool;
    if (tool && _isQuitting) tool->kill();
}

void KVVideoConversion::_recordToolError(KVDiscTool &tool, int status, const QString &reason) {
    if (tool.wasKilled()) return; // the program is quitting
    _recordError(tool.process().arguments(), tool.output() + causeOfFailedWrite(tool.output()), status,
                 reason);
}

QString KVVideoConversion::dvdName() const {
    const std::scoped_lock lock(_discMutex);
    return _dvdName;
}

bool KVVideoConversion::setDVDName(const QString &name) {
    if (!canBeChanged()) return false;
    const std::scoped_lock lock(_discMutex);
    _dvdName = name;
    return true;
}
