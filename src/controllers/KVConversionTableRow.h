#pragma once

#include "controllers/KVMenuItem.h"
#include "controllers/KVRowOutcome.h"
#include "queues/KVConversionQueue.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <memory>
#include <optional>

class KVVideoFile;

/// What a row's actions need of the application.
class KVConversionRowServices {
  public:
    virtual ~KVConversionRowServices() = default;
    virtual void addFiles(const QList<QUrl> &urls) = 0;
    virtual void showInFileManager(const QUrl &url) = 0;
    /// Opens the panel with everything that is known about a failure or about warnings.
    virtual void showDetails(const std::shared_ptr<KVConversion> &conversion) = 0;
    /// The name of the text encoding that the user picked for a subtitles file; nothing if the user
    /// cancelled.
    virtual std::optional<QString> chooseSubtitleEncoding(const KVVideoFile &videoFile,
                                                          const QUrl &subtitles) = 0;
};

/// One conversion in the queue table: its texts, its menu and its actions, without a widget. Cheap to make;
/// holds nothing but the conversion. Main thread only.
class KVConversionTableRow {
  public:
    KVConversionTableRow(std::shared_ptr<KVConversion> conversion,
                         std::shared_ptr<KVConversionRowServices> services);

    /// The files' names, or the name that the user gave, and the row's own preset in brackets.
    QString title() const;
    /// The second line: the state, the present step, the time left, why it failed or what the result lacks;
    /// while the row waits, also its external subtitles and the warnings of its files.
    QString statusText() const;
    KVRowOutcome outcome() const { return KVRowOutcome::of(*_conversion); }
    /// The paths of the files, and the cause of a failure or the warnings; before the end, the external
    /// subtitles and the warnings of the files.
    QString toolTip() const;
    /// What a screen reader says of the row.
    QString accessibleText() const;
    /// Progress of the whole conversion, from 0 to 1; nothing while it is not known.
    std::optional<double> progress() const;

    KVMenu menu() const;

    /// The title follows the state and whether the Option key is down.
    QString stopButtonTitle(bool isOptionKeyDown) const;
    void stopButtonAction(bool isOptionKeyDown) const;

    void startConversion() const;
    void pauseConversion() const;
    void resumeConversion() const;
    /// Stops and removes the row. Asks first if it is executing and the preference says so.
    void cancelConversion() const;
    void removeConversion() const;
    void removeConversionAndReadd() const;
    /// A name counts until the conversion starts.
    bool canBeRenamed() const { return _conversion->state == KVConversionState::waitingToStart; }
    /// A row that has ended in a failure.
    bool canTryAgain() const {
        return _conversion->hasFailed() && outcome().kind == KVRowOutcome::Kind::failed;
    }
    /// Puts a new row in the place of a failed one and starts it.
    void tryAgain() const;
    void tryAgainWithoutSubtitles() const;
    /// Asks for the folder.
    void tryAgainInAnotherFolder() const;
    void showDetails() const { _services->showDetails(_conversion); }
    void renameConversion() const;
    void changeDVDName() const;
    void selectPreset(const std::shared_ptr<KVPreset> &preset) const;
    void selectSubtitles() const;
    void setSubtitles(const QUrl &url) const;
    void removeSubtitles() const;
    void mergeWithConversion(const std::shared_ptr<KVConversion> &other) const;
    void mergeWithAllConversions() const;
    /// Makes one row for each file of a merged row.
    void splitAgain() const;
    void removeFile(const std::shared_ptr<KVMediaFile> &file) const;
    void showInFinder() const;
    /// Gives the row the preset that authors a disc. Asks first if it has more than five files.
    void makeDVD() const;

  private:
    QStringList _notes() const;
    KVMenu _stateItems() const;
    KVMenu _finishedItems() const;
    KVMenu _retryItems() const;
    KVMenu _changingItems() const;
    KVMenu _videoItems() const;
    KVMenu _mergeItems() const;
    KVMenu _removeFileItems() const;
    std::shared_ptr<KVConversionQueue> _queue() const;
    std::shared_ptr<KVVideoFile> _videoFile() const;
    QList<std::shared_ptr<KVConversion>> _otherWaitingConversions() const;
    void _merge(const QList<std::shared_ptr<KVConversion>> &rows) const;
    void _explainUnless(bool isDone) const;
    template <void (KVConversionTableRow::*action)() const>
    KVMenuItem _item(const char *title) const;

    std::shared_ptr<KVConversion> _conversion;
    std::shared_ptr<KVConversionRowServices> _services;
};
