#pragma once

#include "kvcore/KVFileDescriptor.h"

#include <QUrl>

#include <memory>
#include <mutex>

/// Holds the name of an output that is being written, so that no other conversion, in this process or in
/// another, takes it. The name is claimed by creating an empty file that must not have existed, in one step.
///
/// A claim that ends without `keep` removes that file, and only that: device and inode are compared, so a
/// file that another program has put under the name meanwhile stays. ffmpeg and mkisofs write into the file
/// that exists. Any thread.
class KVOutputClaim {
  public:
    /// What came of the attempt.
    enum class Outcome {
        claimed,   ///< The name is ours.
        nameTaken, ///< A file or a source (see KVSourceNames) has the name, or another conversion claimed it.
    };
    struct Attempt {
        Outcome outcome;
        std::shared_ptr<KVOutputClaim> claim; ///< Present with `claimed`.
    };

    /// If the file cannot be created for another reason than its existence (no space, no permission) the
    /// name is claimed within this process alone, nothing is ever removed, and whoever writes reports the
    /// problem.
    static Attempt attempt(const QUrl &url);

    /// Claims an existing file that the user has chosen to replace. It is removed only if it was written to
    /// meanwhile. Null if it cannot be opened, if it is a source of a conversion, or if another conversion of
    /// this process has claimed it.
    static std::shared_ptr<KVOutputClaim> replacing(const QUrl &url);

    ~KVOutputClaim();
    KVOutputClaim(const KVOutputClaim &) = delete;
    KVOutputClaim &operator=(const KVOutputClaim &) = delete;

    QUrl url() const { return _url; }

    /// True if the name still belongs to the file that was claimed. False if that has been removed, or
    /// replaced by another program: what was written is lost then.
    bool isInPlace();

    /// The output is complete: it stays.
    void keep();

    /// Removes the file now, unless it is kept. The name stays claimed.
    void discard();
    /// As `discard`, unless the file is empty: a child that has not opened it yet would make a new one.
    void discardWhatIsWritten();

  private:
    struct State {
        qint64 size = 0;
        qint64 changedAt = 0; ///< Nanoseconds of the clock of the file system.

        bool operator==(const State &) const = default;
    };

    KVOutputClaim(const QUrl &url, KVFileDescriptor file);
    void _discard(bool alsoEmpty);

    const QUrl _url;
    std::mutex _mutex;      ///< Guards the fields below.
    KVFileDescriptor _file; ///< Open, so that no other file gets the inode; invalid if there is none.
    State _replaced;        ///< Of an existing file at the beginning.
    bool _isReplacing = false;
    bool _isKept = false;
};
