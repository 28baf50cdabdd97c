#include "cli/KVRequestIntake.h"

#include "cli/KVPresetChoice.h"
#include "kvcore/KVMainThread.h"
#include "video_info/media_file/KVAudioFile.h"

KVRequestIntake::KVRequestIntake(const KVConversionRequest &request, QueuedHandler didQueue,
                                 RefusedHandler didRefuse)
    : _request(request)
    , _didQueue(std::move(didQueue))
    , _didRefuse(std::move(didRefuse)) {}

bool KVRequestIntake::isFailure(const KVIntakeRefusal &refusal) {
    using Kind = KVIntakeRefusal::Kind;
    if (refusal.kind == Kind::alreadyQueued) return false;
    const bool isStranger = refusal.kind == Kind::filtered || refusal.kind == Kind::otherType;
    return !isStranger || !refusal.isFolderMember;
}

std::optional<qint64> KVRequestIntake::intakeChosenAudioTrack(const KVAudioFile &file) {
    return _isFirst(file) ? _request.audioTrack : std::nullopt;
}

std::optional<KVIntakeObserver::Objection>
KVRequestIntake::intakeWillQueue(const std::shared_ptr<KVMediaFile> &file) {
    using Kind = KVIntakeRefusal::Kind;
    if (!_canConvert(*file))
        return Objection{Kind::otherType,
                         QStringLiteral("The preset \"%1\" does not convert files of the type %2.")
                             .arg(_request.preset->name, KVMediaFileTypes::caseName(file->mediaFileType()))};
    if (!_isFirst(*file)) return std::nullopt;
    const auto reason = _request.prepareFirstFile(*file);
    return reason ? std::optional(Objection{Kind::unsuitable, *reason}) : std::nullopt;
}

void KVRequestIntake::intakeDidQueue(const std::shared_ptr<KVConversion> &conversion) {
    _didQueue(conversion);
}

void KVRequestIntake::intakeDidRefuse(const KVIntakeRefusal &refusal) {
    KVMainThread::async([handle = _didRefuse, refusal] { handle(refusal); });
}

bool KVRequestIntake::_isFirst(const KVMediaFile &file) {
    const auto &first = _request.firstInput;
    const bool isMet = first && (file.url() == *first || first->isParentOf(file.url()));
    if (!_first && isMet && _canConvert(file)) _first = file.url();
    return _first == file.url();
}

bool KVRequestIntake::_canConvert(const KVMediaFile &file) const {
    return KVPresetChoice::canConvert(*_request.preset, file.mediaFileType());
}
