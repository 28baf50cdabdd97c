#pragma once

#include <QString>
#include <QUrl>

#include <memory>
#include <optional>

class KVAudioFile;
class KVConversion;
class KVMediaFile;

/// An item that the intake did not take, and why.
struct KVIntakeRefusal {
    enum class Kind {
        notAFile,      ///< A URL that names no file.
        filtered,      ///< Its extension tells that it is no medium.
        alreadyQueued, ///< It is in a queue, or its folder was walked before.
        unreadable,    ///< Missing, empty, not permitted, or of no known format.
        isProtected,   ///< Encrypted against copying.
        damaged,       ///< Its sound data is known to be read wrongly.
        skipped,       ///< The user chose to skip it.
        otherType,     ///< The observer takes no files of its type.
        unsuitable,    ///< The observer did not want it.
    };
    Kind kind;
    QString path;                ///< As text; bytes that are no text are written "\xNN".
    QString reason;              ///< One sentence for the user.
    bool isFolderMember = false; ///< Met while walking a folder, not named by the user.

    /// True for what lies beside the media of a folder and was hardly meant: it is no medium by its
    /// extension.
    bool isExpected() const { return isFolderMember && kind == Kind::filtered; }
};

/// Is notified of what becomes of the items that enter, so that a front end can show what the intake rejects
/// without an alert. The intake holds its observer weakly.
class KVIntakeObserver {
  public:
    struct Objection {
        KVIntakeRefusal::Kind kind;
        QString reason; ///< As of the refusal.
    };

    virtual ~KVIntakeObserver() = default;

    /// The number of the audio track that was chosen for this file beforehand, so that nobody is asked. On
    /// the loading thread.
    virtual std::optional<qint64> intakeChosenAudioTrack(const KVAudioFile &) { return std::nullopt; }

    /// The file is about to be queued: the last moment to change it, or to answer why it should not be. On
    /// the loading thread.
    virtual std::optional<Objection> intakeWillQueue(const std::shared_ptr<KVMediaFile> &) {
        return std::nullopt;
    }

    /// On the main thread.
    virtual void intakeDidQueue(const std::shared_ptr<KVConversion> &) {}

    /// On the loading thread.
    virtual void intakeDidRefuse(const KVIntakeRefusal &) {}

    /// A folder that is being walked holds a DVD, whose VIDEO_TS folder this is. It is walked like any other
    /// folder; adding its URL adds the disc. On the loading thread.
    virtual void intakeDidMeetDisc(const QUrl &) {}
};
