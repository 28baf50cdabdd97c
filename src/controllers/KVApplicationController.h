#pragma once

#include "controllers/KVApplicationServices.h"
#include "controllers/KVKalvoraAppDelegate.h"
#include "controllers/KVRunNotifications.h"
#include "kvcore/KVSerialQueue.h"
#include "queues/KVConversionQueue.h"

#include <functional>
#include <memory>

/// What the application does around the conversions: start-up, the refusal to quit in the middle of work, the
/// user's notifications, the overall progress and what follows the end of a queue. Knows no widget. Main
/// thread only.
class KVApplicationController : public KVKalvoraAppDelegate,
                                public KVConversionQueueDelegate,
                                public std::enable_shared_from_this<KVApplicationController> {
  public:
    enum class TerminateReply { cancel, now };

    /// All three outlive the controller. `terminate` ends the application through
    /// `applicationShouldTerminate`.
    struct Surroundings {
        KVApplicationServices &services;
        KVConversionProgressBar &progressBar;
        std::function<void()> showReleaseNotes; ///< Modal.
        std::function<void()> terminate;
    };
    explicit KVApplicationController(Surroundings surroundings);
    ~KVApplicationController() override;

    /// Start-up. The controller is held by a shared_ptr.
    void applicationDidFinishLaunching();
    /// Asks where work would be lost. After `now` the application has to end.
    TerminateReply applicationShouldTerminate();
    /// Ends all work without a question and leaves nothing half done behind.
    void applicationWillTerminate();

    void start();
    void pause();
    /// Asks first if the waiting rows have more than five files.
    void mergeAll();
    /// Merges the waiting videos into one conversion with the preset that authors a disc. Asks first if they
    /// have more than five files.
    void makeDVD();
    /// Removes the ended rows, except failed ones. Tags: -1 all queues, 0 video, 1 audio, 2 picture.
    void clearFinishedConversionsInQueue(int tag);
    void clearInactiveConversionsInQueue(int tag);
    void askForReview();

    void conversionQueueWillStartConversion(const Queue &queue, const Conversion &conversion) override;
    void conversionQueueConversionDidUpdateStatus(const Queue &queue, const Conversion &conversion) override;
    void conversionQueueDidSuccessfullyFinishConversion(const Queue &queue,
                                                        const Conversion &conversion) override;
    void conversionQueueDidFailConversion(const Queue &queue, const Conversion &conversion) override;
    void conversionQueueDidFinishAllConversions(const Queue &queue) override;
    void conversionQueueDidBecomeIdle(const Queue &queue) override;

  private:
    void _guessLocation();
    void _performSandboxTransition();
    void _showReleaseNotesOnce();
    void _countConversion();
    void _endWorkIfIdle();
    void _clearConversions(const std::function<bool(const KVConversion &)> &matches, int tag);

    Surroundings _surroundings;
    KVRunNotifications _notifications;
    bool _hasWork = false; ///< From the start of a row until the actions after the last one.
    KVSerialQueue _counting{QStringLiteral("com.brenholt.Kalvora.counting")};
};
