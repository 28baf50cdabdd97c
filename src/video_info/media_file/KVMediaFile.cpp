#include "video_info/media_file/KVMediaFile.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVMainThread.h"
#include "kvcore/KVPreferences.h"
#include "platform/KVFileManager.h"
#include "tasks/KVFFmpegDialect.h"
#include "util/KVAnonymousPath.h"
#include "util/KVByteCount.h"
#include "util/KVPictureLibrary.h"
#include "util/KVPreferenceKeys.h"
#include "video_info/media_file/KVDVDFile.h"
#include "video_info/media_file/KVMediaCheck.h"
#include "video_info/media_file/KVPictureFile.h"
#include "video_info/media_file/KVProbeText.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QBuffer>

#include <algorithm>
#include <array>
#include <atomic>

namespace {

using Result = KVResult<std::shared_ptr<KVMediaFile>>;

constexpr std::array refusedExtensions{u"h",    u"c",    u"cpp", u"m",   u"mm",  u"doc",
                                       u"html", u"htm",  u"txt", u"rtf", u"nfo", u"srt",
                                       u"sub",  u"part", u"zip", u"rar", u"dmg", u"iso"};
constexpr std::array pictureExtensions{u"tif", u"tiff", u"png", u"jpg",  u"jpeg", u"psd",
                                       u"bmp", u"icns", u"gif", u"heic", u"heif"};
constexpr std::array audioExtensions{u"aac", u"m4a", u"mp3", u"ogg", u"wav"};
constexpr std::array protectedExtensions{u"aax"};

std::atomic<bool> makesThumbnails = false;

bool contains(const auto &extensions, const QString &extension) {
    return std::ranges::find(extensions, QStringView(extension)) != extensions.end();
}

QString lowerCasedExtension(const QUrl &url) {
    return KVFileManager::pathExtension(url).toLower();
}

tl::unexpected<KVError> refusal(const char *reason, const QVariantMap &userInfo = {}) {
    return tl::unexpected(
        KVError{KVMediaFileErrorDomain, 0, KVLocalizationCenter::localized(reason), userInfo});
}

/// A GIF that moves is probed like a movie; a still one is a picture, and so is what cannot be read.
bool isAnimated(const QUrl &url, const std::stop_token &stop) {
    const auto header = KVPictureLibrary::header(url.toLocalFile(), stop);
    return header && header->numberOfPages > 1;
}

bool isPicture(const QUrl &url, const QString &extension, const std::stop_token &stop) {
    return contains(pictureExtensions, extension) && (extension != "gif" || !isAnimated(url, stop));
}

Result dvdFile(const QUrl &url) {
    return std::make_shared<KVDVDFile>(KVFileManager::deletingLastPathComponent(url));
}

/// All that ffmpeg prints about the file.
KVResult<QString> toolText(const QUrl &url, const std::stop_token &stop) {
    const auto task = KVFFmpegTask::create({"-i", url.toLocalFile()});
    if (!task) return tl::unexpected(task.error());
    // The exit status says nothing: without an output the tool always fails.
    const QByteArray output = (*task)->launchAndGetAllOutputData(stop);
    if ((*task)->launchError()) return tl::unexpected(*(*task)->launchError());
    return KVFFmpegDialect::textFromTool(output);
}

std::shared_ptr<KVAudioFile> audioFile(const QUrl &url) {
    return std::make_shared<KVAudioFile>(url);
}

std::shared_ptr<KVAudioFile> videoFile(const QUrl &url, const KVProbeText &probe) {
    auto file = std::make_shared<KVVideoFile>(url);
    file->subtitleTracks = probe.subtitleTracks;
    file->videoTracks = probe.videoTracks;
    file->selectedVideoTrack = probe.videoTracks.first();
    return file;
}

/// Whether there is a video track that is not the cover of the sound.
bool hasMovingPictures(const KVProbeText &probe) {
    constexpr std::array stillFormats{"mjpeg", "png", "bmp", "gif", "webp"};
    return std::ranges::any_of(probe.videoTracks, [&](const KVVideoTrack &track) {
        return !track.isAttachedPicture && std::ranges::none_of(stillFormats, [&](const char *format) {
            return track.format.startsWith(QLatin1String(format));
        });
    });
}

Result probedFile(const QUrl &url, const QString &extension, const std::stop_token &stop) {
    const auto text = toolText(url, stop);
    if (!text) return tl::unexpected(text.error());
    const auto probe =
        KVProbeText::read(KVFFmpegDialect::probeTextFromTool(*text), KVFileManager::fileSize(url));

    // The tool shows a cover picture as a video stream, hence the extensions.
    const bool hasAudio = !probe.audioTracks.isEmpty();
    const bool hasVideo = !probe.videoTracks.isEmpty();
    if (!hasAudio && !hasVideo)
        return refusal("Unrecognized file format.", {{NSAffectedObjectsErrorKey, *text}});
    if ((!probe.isDurationKnown || probe.seconds == 0) && !KVMediaCheck::hasMediaData(url, stop))
        return refusal("The file describes its tracks but contains no media data.");
    const bool isAudio = hasAudio && (!hasVideo || contains(audioExtensions, extension));

    const auto file = isAudio ? audioFile(url) : videoFile(url, probe);
    file->seconds = probe.seconds;
    file->audioTracks = probe.audioTracks;
    if (hasAudio) file->selectedAudioTrack = probe.audioTracks.first();
    if (isAudio && hasMovingPictures(probe))
        file->warnings += KVLocalizationCenter::localized(
            "The pictures of \"%@\" are lost, because files with its extension count as sound.",
            {KVFileManager::lastPathComponent(url)});
    file->isEncrypted =
        KVMediaCheck::declaresEncryption(url) && KVMediaCheck::isEncrypted(url, probe.seconds, stop);
    if (stop.stop_requested()) return refusal("User cancelled."); // nothing above is certain then
    file->loadThumbnail();
    return file;
}

} // namespace

Result KVMediaFile::mediaFile(const QUrl &url, const std::stop_token &stop) {
    const QString name = KVFileManager::lastPathComponent(url);
    const QString extension = lowerCasedExtension(url);
    KVLog("Will be processing file " + name);
    if (contains(refusedExtensions, extension)) {
        KVLog("Ignoring " + name + " due to extension filter");
        return refusal("File type is blacklisted by a file extension filter.",
                       {{KVErrorKindKey, KVMediaFileIsFiltered}});
    }
    // The tool would wait for ever for somebody to write into a pipe.
    if (KVFileManager::isSpecialFile(url)) return refusal("This is no regular file.");
    if (isPicture(url, extension, stop)) {
        KVLog("returning a picture file for " + name);
        const auto picture = std::make_shared<KVPictureFile>(url, stop);
        if (stop.stop_requested()) return refusal("User cancelled.");
        picture->loadThumbnail();
        return picture;
    }
    if (KVFileManager::isDirectory(url)) return dvdFile(url);
    return probedFile(url, extension, stop);
}

void KVMediaFile::setMakesThumbnails(bool value) {
    makesThumbnails = value;
}

KVMediaFile::KVMediaFile(const QUrl &url)
    : _url(url) {}

KVMediaFile::~KVMediaFile() = default;

std::shared_ptr<KVMediaFile> KVMediaFile::snapshot() const {
    KVFatalError("snapshot");
}

bool KVMediaFile::isDRMProtected() const {
    return contains(protectedExtensions, lowerCasedExtension(_url));
}

QString KVMediaFile::description() const {
    return "\tFile Type: " + KVMediaFileTypes::localizedName(mediaFileType()) +
           "\n\tURL: " + KVAnonymousPath(_url.toLocalFile()) +
           "\n\tFile Size: " + KVByteCountText(KVFileManager::fileSize(_url));
}

void KVMediaFile::loadThumbnail() {
    if (!makesThumbnails) return;
    if (KVPreferences::shared().boolean(KVPreferenceKeys::DisablePreviews, false)) {
        KVLog("Not loading thumbnail, since it's disabled in preferences.");
        return;
    }
    _startThumbnail();
}

void KVMediaFile::_startThumbnail() {
    if (!makesThumbnails) return;
    loadThumbnail([weakSelf = weak_from_this()](const ThumbnailResult &result) {
        if (!result) return KVLog("No thumbnail - " + result.error().reason);
        // Not waited for: the main thread may be waiting for this thread to end.
        KVMainThread::async([weakSelf, data = compressedThumbnail(*result)] {
            const auto self = weakSelf.lock();
            if (!self) return;
            self->thumbnail = data;
            KVNotificationCenter::defaultCenter().post(KVMediaFileDidLoadThumbnail, self);
        });
    });
}

QByteArray KVMediaFile::compressedThumbnail(const QImage &image) {
    constexpr int quality = 85;
    QBuffer buffer;
    image.save(&buffer, "JPG", quality);
    return buffer.data();
}

void KVMediaFile::loadThumbnail(const ThumbnailCompletion &) {
    KVLog("Not loading anything. Should have overridden this.");
}

KVMediaFileType KVMediaFile::mediaFileType() const {
    KVFatalError("mediaFileType");
}

QString KVMediaFile::stillFramePath() const {
    return _url.toLocalFile();
}
