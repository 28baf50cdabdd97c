#pragma once

#include "kvcore/KVError.h"
#include "kvcore/KVNotificationCenter.h"
#include "tasks/KVFFmpegTask.h"
#include "util/KVMediaFileType.h"

#include <QImage>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

class KVMediaFile;

inline const QString KVMediaFileErrorDomain = QStringLiteral("KVMediaFileErrorDomain");

/// `KVError::kind` of a file that is rejected by its extension alone.
inline const QString KVMediaFileIsFiltered = QStringLiteral("filtered");

/// Posted on the main thread when `thumbnail` has been set.
inline constexpr KVNotificationName<KVMediaFile> KVMediaFileDidLoadThumbnail{
    "KVMediaFileDidLoadThumbnailNotification"};

/// A file that the program can convert. Identity is equality. All fields are written during construction;
/// later only `thumbnail` and what the user chooses (tracks, subtitles), on the main thread.
class KVMediaFile : public KVStillFrameSource, public std::enable_shared_from_this<KVMediaFile> {
  public:
    using ThumbnailResult = KVResult<QImage>;
    using ThumbnailCompletion = std::function<void(const ThumbnailResult &)>;

    /// The one place where a file becomes a typed object, or the reason why it does not: an error of
    /// KVMediaFileErrorDomain, code 0. A tool that cannot be started is an error of its own. Blocks while the
    /// tool runs; `stop` ends it early, with an error. Any thread.
    static KVResult<std::shared_ptr<KVMediaFile>> mediaFile(const QUrl &url,
                                                            const std::stop_token &stop = {});

    /// Whether `loadThumbnail` does anything; false until a front end that shows thumbnails asks for them,
    /// for each costs a run of the tool. Any thread.
    static void setMakesThumbnails(bool makesThumbnails);

    explicit KVMediaFile(const QUrl &url);
    ~KVMediaFile() override;
    KVMediaFile &operator=(const KVMediaFile &) = delete;

    /// Returns a new object with the same values, independent of later changes of this one. Main thread.
    virtual std::shared_ptr<KVMediaFile> snapshot() const;

    /// The file; for a DVD the folder that encloses VIDEO_TS.
    QUrl url() const { return _url; }

    virtual bool isDRMProtected() const;
    /// Several lines for the log and for reports; the user's name is taken out of paths.
    virtual QString description() const;
    /// Starts making the thumbnail in the background, unless previews are switched off. A picture is its own
    /// preview: it always has one.
    virtual void loadThumbnail();
    /// Makes a picture in the background and calls `completion` on a thread of its own; never if the file
    /// object goes before its turn comes.
    virtual void loadThumbnail(const ThumbnailCompletion &completion);
    virtual KVMediaFileType mediaFileType() const;

    QString stillFramePath() const override;
    std::optional<double> stillFrameVideoSeconds() const override { return std::nullopt; }

    /// What every conversion of this file loses, such as the pages behind the first one; one sentence each in
    /// the user's language. Written during construction.
    QStringList warnings;

    /// What `loadThumbnail` has made, a JPEG picture: a queue of thousands keeps them compressed. Empty where
    /// there is none.
    QByteArray thumbnail;
    static QByteArray compressedThumbnail(const QImage &image);

  protected:
    KVMediaFile(const KVMediaFile &) = default;

    /// Starts making the thumbnail if the front end wants thumbnails, whatever the preferences say.
    void _startThumbnail();

  private:
    QUrl _url;
};
