#pragma once

#include "cli/KVConversionRequest.h"
#include "controllers/KVIntakeObserver.h"

#include <functional>

/// Watches the intake for a command: lets in what the preset can convert, prepares the first file and passes
/// on what was queued and what was refused, on the main thread.
class KVRequestIntake : public KVIntakeObserver {
  public:
    using QueuedHandler = std::function<void(const std::shared_ptr<KVConversion> &)>;
    using RefusedHandler = std::function<void(const KVIntakeRefusal &)>;

    KVRequestIntake(const KVConversionRequest &request, QueuedHandler didQueue, RefusedHandler didRefuse);

    /// False for what is no failure: a file that is named twice, and a member of a folder that is no
    /// medium or not of a kind that the preset converts.
    static bool isFailure(const KVIntakeRefusal &refusal);

    std::optional<qint64> intakeChosenAudioTrack(const KVAudioFile &file) override;
    std::optional<Objection> intakeWillQueue(const std::shared_ptr<KVMediaFile> &file) override;
    void intakeDidQueue(const std::shared_ptr<KVConversion> &conversion) override;
    void intakeDidRefuse(const KVIntakeRefusal &refusal) override;

  private:
    /// True for the first input; of a folder that is the first file that the preset converts.
    bool _isFirst(const KVMediaFile &file);
    bool _canConvert(const KVMediaFile &file) const;

    const KVConversionRequest &_request;
    const QueuedHandler _didQueue;
    const RefusedHandler _didRefuse;
    std::optional<QUrl> _first; ///< Once it has been met. The loading thread's own.
};
