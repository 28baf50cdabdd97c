#pragma once

#include "controllers/KVAudioTrackChoice.h"
#include "controllers/KVProbeAhead.h"

#include <QUrl>

#include <deque>
#include <memory>
#include <mutex>
#include <optional>

/// What one call to the intake brought in: the files that still have to take their turn, and what the user
/// chose for all of them. Any thread.
class KVIntakeLoad {
  public:
    using Ticket = std::shared_ptr<KVProbeAhead::Ticket>;

    /// `probeAhead` outlives the object.
    explicit KVIntakeLoad(KVProbeAhead &probeAhead)
        : _probeAhead(probeAhead) {}

    /// The file or the folder will take its turn.
    void expectFile(const QUrl &url);
    void expectFolder();
    /// The file is looked at from now on, as soon as a processor has time for it.
    void lookAhead(const QUrl &url);

    /// Starts with the file. Returns the ticket of its probe, which the caller takes over; empty if the file
    /// was not probed ahead.
    Ticket beginFile(const QUrl &url);
    void beginFolder();

    /// How many of the files to come have several audio tracks.
    struct Following {
        int numberOfFiles = 0;
        bool isComplete = true; ///< False if more files may come than could be looked at.
    };
    /// Looks at the files to come, for about `seconds` at most if they are many.
    Following filesWithSeveralTracks(double seconds);

    /// What holds for all files to come, once the user said so.
    std::optional<KVAudioTrackChoice> trackChoice() const;
    void setTrackChoice(const KVAudioTrackChoice &choice);

  private:
    struct File {
        QUrl url;
        Ticket ticket;
    };
    Ticket _ticketFor(const QUrl &url);

    KVProbeAhead &_probeAhead;
    mutable std::mutex _mutex; ///< Guards the fields below.
    std::deque<File> _files;   ///< In the order of their turns.
    int _numberOfFolders = 0;
    std::optional<KVAudioTrackChoice> _trackChoice;
};
