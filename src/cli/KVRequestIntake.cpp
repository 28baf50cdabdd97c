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
    if (!KVPresetChoice::canConvert(*_request.preset, file->mediaFileType()))
        return Objection{Kind::otherType,
                         QStringLiteral("The preset \"%1\" does not convert files of the type %2.")
                             .arg(_request.preset->name, KVMediaFileTypes::caseName(file->mediaFileType()))};
    if (!_isFirst(*file)) return std::nullopt;
    _hasPreparedFirst = true;
    const auto reason = _request.prepareFirstFile(*file);
    return reason ? std::optional(Objection{Kind::unsuitable, *reason}) : std::nullopt;
}

void KVRequestIntake::intakeDidQueue(const std::shared_ptr<KVConversion> &conversion) {
    _didQueue(conversion);
}

void KVRequestIntake::intakeDidRefuse(const KVIntakeRefusal &refusal) {
    KVMainThread::async([handle = _didRefuse, refusal] { handle(refusal); });
}

bool KVRequestIntake::_isFirst(const KVMediaFile &file) const {
    const QUrl first = _request.inputs.value(0);
    return !_hasPreparedFirst && (file.url() == first || first.isParentOf(file.url()));
}
