#include "controllers/KVAudioTrackQuestion.h"

#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVFileManager.h"
#include "platform/KVUserQuestions.h"
#include "video_info/media_file/KVAudioFile.h"

namespace {

/// The question comes no later than this, however many files are still to be looked at.
constexpr double secondsForLookingAhead = 1;

QString titleOf(const KVAudioTrack &track) {
    return QStringLiteral("%1: %2 (%3) - %4 kbit/s, %5 %6")
        .arg(QString::number(track.trackNumber), track.trackName.value_or(QStringLiteral("nil")),
             track.format, QString::number(track.bitrate / 1024), QString::number(track.numberOfChannels),
             KVLocalizationCenter::localized("channels"));
}

/// The title of the box; empty if no other file of the load has several tracks.
std::optional<QString> titleOfBoxForAll(KVIntakeLoad &load) {
    const KVIntakeLoad::Following following = load.filesWithSeveralTracks(secondsForLookingAhead);
    if (!following.isComplete) return KVLocalizationCenter::localized("Use for all files that follow");
    if (following.numberOfFiles == 0) return std::nullopt;
    return KVLocalizationCenter::localized("Use for all %ld files", {following.numberOfFiles + 1});
}

KVAlert questionFor(const KVAudioFile &file, KVIntakeLoad &load) {
    KVAlert alert;
    alert.messageText = KVLocalizationCenter::localized(
        "File '%@' has more than one audio track. Please select the one you wish to convert.",
        {KVFileManager::lastPathComponent(file.url())});
    alert.buttons = {KVLocalizationCenter::localized("Select"), KVLocalizationCenter::localized("Skip File")};
    alert.escapeButton = 1;
    alert.suppressionTitle = titleOfBoxForAll(load);
    for (const KVAudioTrack &track : file.audioTracks)
        alert.accessoryItems.append(titleOf(track));
    return alert;
}

} // namespace

bool KVAudioTrackQuestion::select(KVAudioFile &file, KVIntakeLoad &load) {
    if (const auto choice = load.trackChoice()) {
        if (choice->isSkip()) return false;
        if (const auto index = choice->indexIn(file.audioTracks)) {
            file.selectedAudioTrack = file.audioTracks[*index];
            return true;
        }
    }
    const KVAlertResponse response = KVUserQuestion::runModalOnMainThread(questionFor(file, load));
    if (!response.isFirstButton()) {
        if (response.isSuppressed) load.setTrackChoice(KVAudioTrackChoice::skip());
        return false;
    }
    const qsizetype index = response.accessoryIndex.value_or(-1);
    const bool isSelected = index >= 0 && index < file.audioTracks.size();
    file.selectedAudioTrack = isSelected ? std::optional(file.audioTracks[index]) : std::nullopt;
    if (isSelected && response.isSuppressed) load.setTrackChoice({file.audioTracks, index});
    return true;
}
