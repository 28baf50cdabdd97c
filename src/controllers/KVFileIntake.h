#pragma once

#include "controllers/KVIntakeLoad.h"
#include "controllers/KVIntakeObserver.h"
#include "kvcore/KVError.h"
#include "kvcore/KVNotificationCenter.h"
#include "kvcore/KVSerialQueue.h"

#include <QList>
#include <QUrl>

#include <atomic>
#include <memory>
#include <set>
#include <stop_token>
#include <utility>

class KVAudioFile;
class KVMediaFile;
class KVVideoFile;

/// Posted on the main thread when the number of files that load in the background has changed.
inline constexpr KVNotificationName<void> FileIntakeDidChangeLoading{"FileIntakeDidChangeLoading"};

/// The door through which every file enters: decides what becomes a queued conversion, walks folders, refuses
/// what may not enter and asks the user what needs a choice. Knows no widget.
///
/// The public operations may be called on the main thread or on the loading queue, and block while the tool
/// looks at a file; conversions are made on the main thread.
class KVFileIntake {
  public:
    KVFileIntake();
    /// Main thread. Drops what is not loaded yet.
    virtual ~KVFileIntake();
    KVFileIntake(const KVFileIntake &) = delete;
    KVFileIntake &operator=(const KVFileIntake &) = delete;

    /// Takes files and folders in; true if at least one item was taken in before the call returns. The
    /// members of a large folder load behind it.
    bool addFiles(const QList<QUrl> &urls);

    /// For callers with arbitrary URLs: those that name no file are logged and passed over.
    void addURLs(const QList<QUrl> &urls);

    /// Takes them in on the loading queue, one after the other, and returns at once.
    void addFilesInBackground(const QList<QUrl> &urls);

    /// True until all that was given to `addFilesInBackground` has been entered: from then on no folder is
    /// read any more, whatever is left to load.
    bool isEntering() const { return _numberOfPendingItems > 0; }

    /// True while the loading queue has something to load, or the main thread has still to hear of it.
    bool isLoading() const { return *_numberOfBackgroundLoads > 0; }

    /// How many files still wait for the loading queue or are being looked at.
    int numberOfLoadingFiles() const { return *_numberOfBackgroundLoads; }

    /// Main thread: runs the event loop until nothing is left to load or the time is up; true if nothing is.
    bool waitUntilLoaded(double seconds);

    /// Refuses everything from now on, without a word; the programs that look at files are ended.
    void cancelLoading();

    /// Held weakly. Set before files are added.
    void setObserver(const std::weak_ptr<KVIntakeObserver> &observer) { _observer = observer; }

    /// The medium in a file that is no folder. `stop` ends it early, with an error.
    static KVResult<std::shared_ptr<KVMediaFile>> readFile(const QUrl &url, const std::stop_token &stop = {});

    /// What to tell the user about a file that cannot be read as a medium: the nearest cause, where one
    /// shows.
    static QString reasonForUnreadableFile(const QUrl &url, const KVError &error);

  private:
    /// Folders that the present walk has entered, by device and inode: a folder that links to itself is
    /// entered once.
    using Walk = std::set<std::pair<quint64, quint64>>;

    using Load = std::shared_ptr<KVIntakeLoad>;
    /// An item whose turn has come.
    struct Item {
        QUrl url;
        Load load;
        bool isFolderMember = false;
        KVIntakeLoad::Ticket ticket = {}; ///< If the file has been looked at ahead of its turn.
    };

    Load _expected(const QList<QUrl> &urls);
    bool _takeTurn(const QUrl &url, const Load &load, bool isFolderMember = false);
    bool addFile(const Item &item);
    bool _addFile(const Item &item);
    bool _addFolder(const Item &item);
    bool _addDVD(const Item &item);
    KVResult<bool> _addFiles(const QUrl &folder, int depth, Walk &walk, const Load &load);
    void _reportDisc(const QUrl &folder) const;
    bool _addMember(const QUrl &member, const Load &load);
    void _loadMemberInBackground(const QUrl &member, const Load &load);
    void _loadInBackground(std::function<void()> load);
    QList<QUrl> _sandboxURLs(const QList<QUrl> &urls) const;

    bool _isAcceptable(const std::shared_ptr<KVMediaFile> &file, const Item &item);
    bool _checkForDRMProtection(const KVMediaFile &file, bool isFolderMember);
    bool _validateAudioFile(const KVAudioFile &file, bool isFolderMember);
    bool _selectAudioTrack(KVAudioFile &file, const Item &item);
    bool _queue(const std::shared_ptr<KVMediaFile> &file, bool isFolderMember);

    void _refuseUnreadable(const QUrl &url, const KVError &error, bool isFolderMember) const;
    void _refuse(KVIntakeRefusal::Kind kind, const QUrl &url, const QString &reason,
                 bool isFolderMember) const;
    void _refuse(const KVIntakeRefusal &refusal) const;

    std::weak_ptr<KVIntakeObserver> _observer;
    std::atomic<bool> _isCancelled = false;
    std::stop_source _stop; ///< Requested with the flag above.
    /// Shared: the last load may be counted off when the intake has gone.
    const std::shared_ptr<std::atomic<int>> _numberOfBackgroundLoads = std::make_shared<std::atomic<int>>(0);
    std::atomic<qsizetype> _numberOfPendingItems = 0;
    KVProbeAhead _probeAhead; ///< For the files that wait in the queue below.
    KVSerialQueue _fileLoadingQueue;
};
