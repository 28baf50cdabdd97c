#pragma once

#include "platform/KVProcess.h"

#include <atomic>
#include <functional>

/// One run of `dvdauthor` or `mkisofs`. Used by one thread, except for `kill`.
class KVDiscTool {
  public:
    /// `name` is the tool's resource, whose absence is a programming error; `package` is what to install
    /// where the tool itself is missing.
    KVDiscTool(const QString &name, const QString &package);

    KVProcess &process() { return _process; }

    /// Starts the tool and answers the read end of its standard error. Where it cannot be started nothing is
    /// answered, and `output` tells why.
    std::shared_ptr<KVFileHandle> launch();

    /// Reads until the tool has ended; `handleChunk` gets each chunk of text.
    void read(KVFileHandle &handle, const std::function<void(const QString &chunk)> &handleChunk);

    /// The exit status; 127 for a tool that was not started.
    int waitUntilExit();

    /// All that the tool said.
    const QString &output() const { return _output; }

    /// Ends the tool at once, also one that is about to start. Any thread.
    void kill();
    bool wasKilled() const { return _wasKilled; }

  private:
    KVProcess _process;
    QString _package;
    QString _output;
    std::atomic<bool> _wasKilled = false;
};
