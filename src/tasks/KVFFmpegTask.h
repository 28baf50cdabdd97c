#pragma once

#include "kvcore/KVError.h"
#include "platform/KVProcess.h"

#include <QByteArray>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <optional>
#include <stop_token>

/// Something that a still frame can be grabbed from.
class KVStillFrameSource {
  public:
    virtual ~KVStillFrameSource() = default;
    virtual QString stillFramePath() const = 0;
    /// Duration in seconds of a video; nothing for any other kind of file, which is grabbed at its start.
    virtual std::optional<double> stillFrameVideoSeconds() const = 0;
};

/// Prepares and runs the external `ffmpeg`. Owns the launch path, the child's environment (FONTCONFIG_PATH
/// alone), the font configuration that the child sees and the wiring of its output. By default the child's
/// standard error goes into a pipe and its standard output is inherited.
///
/// Used by one thread at a time, except for `suspend`, `resume` and `interrupt` on its process.
class KVFFmpegTask {
  public:
    /// Does not start the child. Fails if the fonts folder or its configuration cannot be made.
    static KVResult<std::shared_ptr<KVFFmpegTask>> create(const QStringList &arguments);

    /// The folder that the child's FONTCONFIG_PATH names, with an up-to-date configuration. Any thread.
    static KVResult<QString> preparedFontsDirectory();

    /// The list as it was given, in our own dialect: what logs and reports show.
    QStringList arguments() const;
    QString launchPath() const;

    /// The process object, for suspend, resume, interrupt, waiting and the status.
    KVProcess &process();

    /// Starts the child with the list as the installed tool takes it. A tool that is not installed is an
    /// error that names the package.
    KVResult<void> launch();

    /// The read end of the pipe that carries the child's output; absent while the task is silenced.
    std::shared_ptr<KVFileHandle> fileHandle() const;

    bool isSilenced() const;
    /// Both output streams go to the null device; there is no file handle.
    void setIsSilenced(bool isSilenced);
    bool usesStandardOutput() const;
    /// The pipe carries standard output instead of standard error, which then goes to the null device.
    void setUsesStandardOutput(bool usesStandardOutput);

    /// Launches the child, blocks until it has exited and answers all that it wrote to the wired stream. A
    /// launch that failed gives an empty buffer and `launchError`. `stop` kills the child.
    QByteArray launchAndGetAllOutputData(const std::stop_token &stop = {});
    const std::optional<KVError> &launchError() const;

    /// `output` for a log line: "nil" where the bytes are no text.
    static QString logText(const QByteArray &output);

    /// Grabs one frame into a JPEG in the temporary directory and answers its URL; whether the file exists is
    /// for the caller to find out. Blocks until the tool has exited; `stop` ends it early.
    static KVResult<QUrl> generateRandomImage(const KVStillFrameSource &source,
                                              const std::stop_token &stop = {});

  private:
    explicit KVFFmpegTask(const QStringList &arguments);
    void _handlePipeChange();
    QByteArray _allOutputData(const std::stop_token &stop);

    QStringList _arguments;
    KVProcess _concreteTask;
    std::shared_ptr<KVFileHandle> _fileHandle;
    std::optional<KVError> _launchError;
    bool _isSilenced = false;
    bool _usesStandardOutput = false;
};
