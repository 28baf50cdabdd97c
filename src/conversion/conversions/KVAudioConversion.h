#pragma once

#include "conversion/conversions/KVConversion.h"
#include "conversion/conversions/KVFFmpegReport.h"
#include "conversion/conversions/KVProgressAccuracy.h"
#include "video_info/media_file/KVAudioFile.h"

#include <QByteArray>

using KVAudioFileList = QList<std::shared_ptr<KVAudioFile>>;

/// The ordinary conversion: makes one task of the media files and the preset, runs the tool, follows its
/// output, decides whether it worked (the exit status is 0 and the result is there), checks the result and
/// does what comes after.
class KVAudioConversion : public KVConversion {
  public:
    using KVConversion::KVConversion;

    void cancel() override;
    void killChildren() override;
    bool pause() override;
    void resume() override;
    void performPostConversionTasks() override;
    bool performTaskNumber(int number) override;

    /// True when the child has made the output. `destination` is a file, or a folder that the preset names a
    /// file in. Worker thread; returns when the child has ended.
    virtual bool convertFiles(const KVMediaFileList &files, const QUrl &destination,
                              const std::shared_ptr<KVPreset> &preset, bool addToHistory);

    /// Children of all conversions that have not ended, paused ones too. Any thread.
    static int numberOfRunningChildren();

  protected:
    /// Reads the running child's output until it has ended.
    virtual void _handleTaskOutputForMediaFiles(const KVAudioFileList &files);
    /// One chunk of output, taken as one line.
    void _handleTaskOutputForMediaFiles(const KVAudioFileList &files, const QString &line,
                                        KVProgressAccuracy &progressAccuracy);

    /// Puts the source's cover picture into the output. A hook: nothing is done here.
    virtual void copyArtwork() {}
    /// Hands the output to the media library. A hook: nothing is done here.
    virtual void _addToiTunes() {}

    std::shared_ptr<KVFFmpegTask> _task() const;
    /// All chunks so far, each followed by a line feed. Worker thread.
    QString _taskOutputString() const { return QString::fromUtf8(_taskOutput); }

  private:
    QUrl _destination(const QUrl &folder, const KVPreset &preset) const;
    bool _convert(const KVAudioFileList &files, const KVPresetTask &made, KVMediaFileType type,
                  bool addToHistory);
    int _run(const KVAudioFileList &files, KVFFmpegTask &task);
    void _checkResult(const KVAudioFileList &files, const KVPresetTask &made);
    bool _keepOutput();
    void _setTask(const std::shared_ptr<KVFFmpegTask> &task);
    void _preserveCreationDate() const;

    mutable std::mutex _taskMutex; ///< Guards the field below, and whether a result is kept or cancelled.
    std::shared_ptr<KVFFmpegTask> _runningTask;
    QByteArray _taskOutput; ///< Bytes, so that a talkative child costs no second copy.
    KVFFmpegReport _report; ///< Of the present task.
    int _terminationStatus = 0;
    QString _failureReason; ///< Why a task failed although its child did not; in the user's language.
};
