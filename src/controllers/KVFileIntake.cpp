#include "controllers/KVFileIntake.h"

#include "controllers/KVAudioTrackQuestion.h"
#include "controllers/KVSubtitlesDetection.h"
#include "conversion/conversions/KVAudioConversion.h"
#include "conversion/conversions/KVConversion.h"
#include "delivery/ZRFixAIFFFile.h"
#include "kvcore/KVBookmark.h"
#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVLog.h"
#include "kvcore/KVMainThread.h"
#include "platform/KVFileManager.h"
#include "platform/KVUserQuestions.h"
#include "queues/KVConversionQueue.h"
#include "util/KVBackgroundQueue.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVThreadCount.h"
#include "video_info/media_file/KVMediaCheck.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Above this many waiting conversions the members of a folder load in the background.
constexpr int maximumNumberOfWaitingFiles = 3;

/// The mark of an AIFF whose sample data the tool reads wrongly.
constexpr QLatin1String misreadFormat{"twos / 0x736F7774"};

const QString videoFolderName = QStringLiteral("VIDEO_TS");

bool isProtectedMusic(const QUrl &url) {
    return KVFileManager::pathExtension(url).toLower() == QLatin1String("m4p");
}

std::optional<std::pair<quint64, quint64>> identityOfFolder(const QUrl &folder) {
    struct stat status {};
    if (::stat(QFile::encodeName(folder.toLocalFile()).constData(), &status) != 0) return std::nullopt;
    return std::pair<quint64, quint64>{status.st_dev, status.st_ino};
}

void tellThatLoadingChanged() {
    KVNotificationCenter::defaultCenter().post(FileIntakeDidChangeLoading, std::shared_ptr<void>());
}

/// The number of the system's error where the item cannot be read, else 0.
int readingProblem(const QUrl &url) {
    return ::access(QFile::encodeName(url.toLocalFile()).constData(), R_OK) == 0 ? 0 : errno;
}

} // namespace

KVFileIntake::KVFileIntake()
    : _probeAhead([stop = _stop.get_token()](const QUrl &url) { return readFile(url, stop); },
                  KVProcessInfo::activeProcessorCount(), KVAudioConversion::numberOfRunningChildren)
    , _fileLoadingQueue(QStringLiteral("com.brenholt.Kalvora.loading_queue")) {}

KVFileIntake::~KVFileIntake() {
    cancelLoading();
    // A file that is being looked at may wait for the main thread: let it in before the queue is joined.
    waitUntilLoaded(60);
    KVBackgroundQueue::shared().setIsHeld(false);
}

bool KVFileIntake::addFiles(const QList<QUrl> &urls) {
    const QList<QUrl> scopedURLs = _sandboxURLs(urls);
    const Load load = _expected(scopedURLs);
    bool isAnyAdded = false;
    for (const QUrl &url : scopedURLs)
        isAnyAdded |= _takeTurn(url, load);
    return isAnyAdded;
}

void KVFileIntake::addURLs(const QList<QUrl> &urls) {
    const Load load = _expected(urls);
    for (const QUrl &url : urls) {
        if (url.isLocalFile()) {
            _takeTurn(url, load);
            continue;
        }
        KVLog(QStringLiteral("Kalvora currently doesn't support non-file URLs (%1).").arg(url.toString()));
        _refuse({KVIntakeRefusal::Kind::notAFile, url.toString(),
                 KVLocalizationCenter::localized("Only files can be added.")});
    }
}

void KVFileIntake::addFilesInBackground(const QList<QUrl> &urls) {
    _numberOfPendingItems += urls.size();
    const QList<QUrl> scopedURLs = _sandboxURLs(urls);
    const Load load = _expected(scopedURLs);
    for (const QUrl &url : scopedURLs) {
        _loadInBackground([this, url, load] {
            _takeTurn(url, load);
            --_numberOfPendingItems;
        });
    }
}

KVFileIntake::Load KVFileIntake::_expected(const QList<QUrl> &urls) {
    auto load = std::make_shared<KVIntakeLoad>(_probeAhead);
    for (const QUrl &url : urls) {
        if (!url.isLocalFile()) continue;
        if (KVFileManager::isDirectory(url))
            load->expectFolder();
        else
            load->expectFile(url);
    }
    return load;
}

bool KVFileIntake::_takeTurn(const QUrl &url, const Load &load, bool isFolderMember) {
    if (!isFolderMember && KVFileManager::isDirectory(url)) load->beginFolder();
    const auto ticket = load->beginFile(url);
    const bool isAdded = addFile({url, load, isFolderMember, ticket});
    if (ticket) _probeAhead.forget(ticket);
    return isAdded;
}

bool KVFileIntake::waitUntilLoaded(double seconds) {
    return KVMainThread::runUntil([this] { return !isLoading(); }, seconds);
}

void KVFileIntake::cancelLoading() {
    _isCancelled = true;
    _probeAhead.stop();
    _stop.request_stop();
}

bool KVFileIntake::addFile(const Item &item) {
    return !_isCancelled && _addFile(item);
}

bool KVFileIntake::_addFile(const Item &item) {
    using Kind = KVIntakeRefusal::Kind;
    const QUrl &url = item.url;
    const auto refuse = [&](Kind kind, const char *reason) {
        _refuse(kind, url, KVLocalizationCenter::localized(reason), item.isFolderMember);
        return false;
    };

    if (!url.isLocalFile()) return refuse(Kind::notAFile, "Only files can be added.");
    if (KVFileManager::isDirectory(url)) return _addFolder(item);
    if (isProtectedMusic(url)) return refuse(Kind::isProtected, "Protected music files cannot be converted.");
    if (KVConversionQueue::anyQueueContainsMedia(url))
        return refuse(Kind::alreadyQueued, "The file is in the queue already.");

    const auto file = item.ticket ? _probeAhead.take(item.ticket) : readFile(url, _stop.get_token());
    if (_isCancelled) return false;
    if (!file) {
        _refuseUnreadable(url, file.error(), item.isFolderMember);
        return false;
    }
    return _isAcceptable(*file, item) && _queue(*file, item.isFolderMember);
}

bool KVFileIntake::_addFolder(const Item &item) {
    const auto &[url, load, isFolderMember, ticket] = item;
    if (KVFileManager::pathExtension(url) == QLatin1String("dvdmedia"))
        return addFile({KVFileManager::appendingPathComponent(url, videoFolderName), load, isFolderMember});
    if (KVFileManager::lastPathComponent(url) == videoFolderName) return _addDVD(item);

    Walk walk;
    const auto isAnyAdded = _addFiles(url, 0, walk, load);
    if (isAnyAdded) return *isAnyAdded;
    KVError error = isAnyAdded.error();
    // A subfolder that cannot be read ends the walk.
    if (readingProblem(url) == 0)
        error.reason =
            KVLocalizationCenter::localized("%@. The rest of the folder was skipped.", {error.reason});
    _refuseUnreadable(url, error, isFolderMember);
    return false;
}

bool KVFileIntake::_addDVD(const Item &item) {
    const auto file = KVMediaFile::mediaFile(item.url);
    if (file) return _queue(*file, item.isFolderMember);
    _refuseUnreadable(item.url, file.error(), item.isFolderMember);
    return false;
}

KVResult<bool> KVFileIntake::_addFiles(const QUrl &folder, int depth, Walk &walk, const Load &load) {
    using namespace KVPreferenceKeys;
    const bool isRecursive = KVPreferences::shared().boolean(RecursivelyProcessAllFolders, false);
    if (depth != 0 && !isRecursive) return false;
    if (depth != 0) load->beginFolder();
    if (const auto identity = identityOfFolder(folder); identity && !walk.insert(*identity).second) {
        _refuse(KVIntakeRefusal::Kind::alreadyQueued, folder,
                KVLocalizationCenter::localized("The folder has been read already."), true);
        return false;
    }

    const auto members = KVFileManager::contentsOfDirectory(folder);
    if (!members) return tl::unexpected(members.error());
    for (const QString &name : KVFileManager::undecodableNames(folder))
        _refuse({KVIntakeRefusal::Kind::unreadable, folder.toLocalFile() + '/' + name,
                 KVLocalizationCenter::localized("The name is not UTF-8."), true});
    for (const QUrl &member : *members) {
        if (!KVFileManager::isDirectory(member))
            load->expectFile(member);
        else if (isRecursive)
            load->expectFolder();
    }
    bool isAnyAdded = false;
    for (const QUrl &member : *members) {
        if (_isCancelled) break;
        if (!KVFileManager::isDirectory(member)) {
            isAnyAdded |= _addMember(member, load);
            continue;
        }
        _reportDisc(member);
        auto isAnyAddedInside = _addFiles(member, depth + 1, walk, load);
        if (!isAnyAddedInside) return isAnyAddedInside;
        isAnyAdded |= *isAnyAddedInside;
    }
    return isAnyAdded;
}

/// Reports the disc of a folder that was met in a walk: the folder itself, or what its package holds.
void KVFileIntake::_reportDisc(const QUrl &folder) const {
    const auto observer = _observer.lock();
    if (!observer) return;
    const bool isPackage = KVFileManager::pathExtension(folder) == QLatin1String("dvdmedia");
    const QUrl videoFolder =
        isPackage ? KVFileManager::appendingPathComponent(folder, videoFolderName) : folder;
    if (KVFileManager::lastPathComponent(videoFolder) == videoFolderName &&
        KVFileManager::isDirectory(videoFolder))
        observer->intakeDidMeetDisc(videoFolder);
}

bool KVFileIntake::_addMember(const QUrl &member, const Load &load) {
    int numberOfWaitingFiles = 0;
    for (const auto &queue : KVConversionQueue::allQueues())
        numberOfWaitingFiles += queue->numberOfFilesWaitingToBeConverted();
    if (numberOfWaitingFiles <= maximumNumberOfWaitingFiles) return _takeTurn(member, load, true);
    _loadMemberInBackground(member, load);
    return false;
}

/// Its turn comes behind all others, but it is looked at as soon as a processor has time for it, unless its
/// name alone settles its case.
void KVFileIntake::_loadMemberInBackground(const QUrl &member, const Load &load) {
    if (!isProtectedMusic(member) && !KVConversionQueue::anyQueueContainsMedia(member))
        load->lookAhead(member);
    _loadInBackground([this, member, load] { _takeTurn(member, load, true); });
}

void KVFileIntake::_loadInBackground(std::function<void()> load) {
    if (++*_numberOfBackgroundLoads == 1) {
        KVBackgroundQueue::shared().setIsHeld(true); // thumbnails come later
        KVMainThread::async(tellThatLoadingChanged);
    }
    _fileLoadingQueue.async([number = _numberOfBackgroundLoads, load = std::move(load)] {
        load();
        // Behind all that the observer has handed over to the main thread meanwhile: who waits for the end of
        // the loading has heard of every file.
        KVMainThread::async([number] {
            if (--*number == 0) KVBackgroundQueue::shared().setIsHeld(false);
            tellThatLoadingChanged();
        });
    });
}

QList<QUrl> KVFileIntake::_sandboxURLs(const QList<QUrl> &urls) const {
    QList<QUrl> scopedURLs;
    for (const QUrl &url : urls) {
        const QString name = KVFileManager::lastPathComponent(url);
        const auto bookmark = KVBookmark::data(url);
        const auto scopedURL = bookmark ? KVBookmark::resolve(*bookmark) : std::nullopt;
        KVLog(QStringLiteral("%1 - isReadable: %2")
                  .arg(name,
                       KVFileManager::isReadable(url) ? QStringLiteral("true") : QStringLiteral("false")));
        if (bookmark) KVLog(QStringLiteral("%1 - bookmark data: %2 bytes").arg(name).arg(bookmark->size()));
        KVLog(scopedURL ? QStringLiteral("%1 - scopedURL: %2").arg(name, scopedURL->toString())
                        : QStringLiteral("%1 - something failed %2")
                              .arg(name, bookmark ? QStringLiteral("The bookmark tells no file.")
                                                  : QStringLiteral("This is no file.")));
        scopedURLs.append(scopedURL.value_or(url));
    }
    return scopedURLs;
}

bool KVFileIntake::_isAcceptable(const std::shared_ptr<KVMediaFile> &file, const Item &item) {
    // A video is a kind of audio file, so it is asked for first.
    if (const auto video = std::dynamic_pointer_cast<KVVideoFile>(file)) {
        if (_checkForDRMProtection(*video, item.isFolderMember)) return false;
        if (!_selectAudioTrack(*video, item)) return false;
        if (video->automaticallyDetectSubtitles()) {
            KVLog(QStringLiteral("Automatically adding subtitles from %1")
                      .arg(video->subtitlesFileURL->toLocalFile()));
            KVSubtitlesDetection::settleEncoding(*video);
        }
        return true;
    }
    if (const auto audio = std::dynamic_pointer_cast<KVAudioFile>(file))
        return _validateAudioFile(*audio, item.isFolderMember) && _selectAudioTrack(*audio, item);
    return true;
}

bool KVFileIntake::_checkForDRMProtection(const KVMediaFile &file, bool isFolderMember) {
    if (!file.isDRMProtected()) return false;
    KVAlert alert;
    alert.messageText =
        KVLocalizationCenter::localized("Kalvora cannot convert '%@' because it is DRM-encrypted.",
                                        {KVFileManager::lastPathComponent(file.url())});
    alert.informativeText =
        KVLocalizationCenter::localized("Sorry, but Kalvora cannot remove DRM protection.");
    alert.buttons = {KVLocalizationCenter::localized("OK")};
    alert.isReportedElsewhere = true;
    KVUserQuestion::runModalOnMainThread(alert);
    _refuse(KVIntakeRefusal::Kind::isProtected, file.url(),
            KVLocalizationCenter::localized("The file is DRM-encrypted."), isFolderMember);
    return true;
}

bool KVFileIntake::_validateAudioFile(const KVAudioFile &file, bool isFolderMember) {
    const bool isMisread = std::ranges::any_of(
        file.audioTracks, [](const KVAudioTrack &track) { return track.format == misreadFormat; });
    if (!isMisread) return !_checkForDRMProtection(file, isFolderMember);

    KVAlert alert;
    alert.messageText =
        KVLocalizationCenter::localized("This audio file seems to be corrupted. Do you wish to fix it?");
    alert.informativeText =
        KVLocalizationCenter::localized("The original file will be untouched - a copy will be created.");
    alert.buttons = {KVLocalizationCenter::localized("Fix..."), KVLocalizationCenter::localized("Cancel")};
    alert.isReportedElsewhere = true;
    // The first button leaves all as it is, the other repairs: this sense is kept on purpose.
    const bool isRepairWanted = !KVUserQuestion::runModalOnMainThread(alert).isFirstButton();
    if (const auto copy = isRepairWanted ? ZRFixAIFFFile(file.url()) : std::nullopt)
        addFiles({*copy});
    else
        _refuse(KVIntakeRefusal::Kind::damaged, file.url(),
                KVLocalizationCenter::localized(
                    "The sound data of this file is damaged; only a repaired copy can be converted."),
                isFolderMember);
    return false;
}

bool KVFileIntake::_selectAudioTrack(KVAudioFile &file, const Item &item) {
    const auto observer = _observer.lock();
    if (const auto chosen = observer ? observer->intakeChosenAudioTrack(file) : std::nullopt) {
        const auto track = std::ranges::find(file.audioTracks, *chosen, &KVAudioTrack::trackNumber);
        if (track != file.audioTracks.end()) {
            file.selectedAudioTrack = *track;
            return true;
        }
        _refuse(KVIntakeRefusal::Kind::unsuitable, file.url(),
                KVLocalizationCenter::localized("The file has no audio track %li.", {*chosen}),
                item.isFolderMember);
        return false;
    }
    if (file.audioTracks.size() < 2 || KVAudioTrackQuestion::select(file, *item.load)) return true;
    _refuse(KVIntakeRefusal::Kind::skipped, file.url(),
            KVLocalizationCenter::localized("The file was skipped."), item.isFolderMember);
    return false;
}

bool KVFileIntake::_queue(const std::shared_ptr<KVMediaFile> &file, bool isFolderMember) {
    if (_isCancelled) return false;
    const auto observer = _observer.lock();
    if (const auto objection = observer ? observer->intakeWillQueue(file) : std::nullopt) {
        _refuse(objection->kind, file->url(), objection->reason, isFolderMember);
        return false;
    }
    KVLog(file->description());
    KVMainThread::syncOrNow([&] {
        const auto queue = KVConversionQueue::queue(file->mediaFileType());
        const auto conversion = queue->createConversion(file, nullptr, true);
        if (observer) observer->intakeDidQueue(conversion);
    });
    return true;
}

KVResult<std::shared_ptr<KVMediaFile>> KVFileIntake::readFile(const QUrl &url, const std::stop_token &stop) {
    auto file = KVMediaFile::mediaFile(url, stop);
    // A picture is one by its name alone.
    if (const int problem = file ? readingProblem(url) : 0)
        return tl::unexpected(KVPOSIXError(url.toLocalFile(), problem));
    return file;
}

QString KVFileIntake::reasonForUnreadableFile(const QUrl &url, const KVError &error) {
    const int problem = readingProblem(url);
    if (problem == ENOENT || problem == ENOTDIR)
        return KVLocalizationCenter::localized("No such file or folder.");
    if (problem == EACCES) return KVLocalizationCenter::localized("There is no permission to read it.");
    if (problem == ELOOP) return KVLocalizationCenter::localized("The link leads back to itself.");
    const QFileInfo info(url.toLocalFile());
    if (info.isFile() && info.size() == 0) return KVLocalizationCenter::localized("The file is empty.");
    const QString output = error.userInfo.value(NSAffectedObjectsErrorKey).toString();
    if (output.contains("moov atom not found") && KVMediaCheck::hasMP4Header(url))
        return KVLocalizationCenter::localized(
            "The file is incomplete: the index that belongs to it is missing.");
    return error.reason;
}

void KVFileIntake::_refuseUnreadable(const QUrl &url, const KVError &error, bool isFolderMember) const {
    KVLog(QStringLiteral("Could not read file %1 - %2")
              .arg(KVFileManager::lastPathComponent(url), error.reason));
    const bool isFiltered = error.domain == KVMediaFileErrorDomain && error.kind() == KVMediaFileIsFiltered;
    _refuse(isFiltered ? KVIntakeRefusal::Kind::filtered : KVIntakeRefusal::Kind::unreadable, url,
            reasonForUnreadableFile(url, error), isFolderMember);
}

void KVFileIntake::_refuse(KVIntakeRefusal::Kind kind, const QUrl &url, const QString &reason,
                           bool isFolderMember) const {
    _refuse({kind, url.isLocalFile() ? url.toLocalFile() : url.toString(), reason, isFolderMember});
}

void KVFileIntake::_refuse(const KVIntakeRefusal &refusal) const {
    if (const auto observer = _observer.lock()) observer->intakeDidRefuse(refusal);
}
