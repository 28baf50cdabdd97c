#pragma once

#include "core/KVErrorCenter.h"
#include "presets/audio/KVAudioPresets.h"
#include "queues/KVConversionQueue.h"
#include "support/KVTestCase.h"
#include "video_info/media_file/KVAudioFile.h"

#include <map>

/// Writes down what a queue tells, by the source's name: "start a.wav", "done a.wav", "fail b.wav", "all".
class KVQueueRecorder : public KVConversionQueueDelegate {
  public:
    QStringList events;
    int statusUpdates = 0;

    QStringList statusTexts; ///< Of every update.

    void conversionQueueConversionDidUpdateStatus(const Queue &, const Conversion &conversion) override {
        ++statusUpdates;
        statusTexts += conversion->statusString();
    }
    void conversionQueueDidFailConversion(const Queue &, const Conversion &conversion) override {
        _note("fail ", conversion);
    }
    void conversionQueueDidSuccessfullyFinishConversion(const Queue &,
                                                        const Conversion &conversion) override {
        _note("done ", conversion);
    }
    void conversionQueueWillStartConversion(const Queue &, const Conversion &conversion) override {
        _note("start ", conversion);
    }
    void conversionQueueDidFinishAllConversions(const Queue &) override { events += "all"; }

  private:
    void _note(const QString &what, const Conversion &conversion) {
        events += what + conversion->mediaFiles().first()->url().fileName();
    }
};

/// The preset for sound with a fixed number of threads, and so of conversions side by side.
class KVPresetWithThreads : public KVMP3Preset {
  public:
    explicit KVPresetWithThreads(const QString &threads)
        : _threads(threads) {
        name = "Threads";
    }
    std::optional<QString> threadCountArgument() const override { return _threads; }
    const KVPresetClass &presetClass() const override { return KVMP3Preset().presetClass(); }

  private:
    QString _threads;
};

/// Tests of the engine with a script in the place of the tool. The script plays the part that the source's
/// name tells, up to the first dot:
/// good, failing, crashing, silent, chatty, garbled, endless, deaf (to the first interrupt), stone-deaf.
/// Each run adds "<part> <process number>" to the file "runs" in the test's folder.
class KVEngineTestCase : public KVTestCase {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Uses the real tool again.
    void useRealTool();

    std::shared_ptr<KVConversionQueue> queue() const;
    /// A sound of 10 seconds, not a real one: only the script is to see it.
    std::shared_ptr<KVAudioFile> file(const QString &name) const;
    /// A row of the queue.
    std::shared_ptr<KVConversion> add(const QString &name) const;
    /// Starts the queue, unless it is, and runs until its end is told.
    void runToEnd();
    /// One conversion after the other.
    void runOneByOne() const;

    /// Like `runUntil`, for what happens outside of this process.
    static bool waitFor(const std::function<bool()> &isDone);
    /// Waits for the script's run of that part and answers its process number.
    int pidOf(const QString &part) const;
    static bool isAlive(int pid);
    /// The kernel's letter for what the process does, such as 'T' when it is stopped.
    static char processState(int pid);

    std::shared_ptr<KVQueueRecorder> recorder;
    std::vector<KVConversionError> errors; ///< As they were recorded; read after the end.

  private:
    std::mutex _errorsMutex;
};
