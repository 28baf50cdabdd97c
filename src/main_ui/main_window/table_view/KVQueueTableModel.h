#pragma once

#include "controllers/KVConversionTableRow.h"
#include "controllers/KVPresetPopUpButton.h"
#include "controllers/KVQueueTableViewController.h"
#include "controllers/KVRowSelection.h"

#include <QAbstractListModel>

#include <map>
#include <memory>

/// The queue table as Qt's views see it: a thin adapter over the controller, which knows the rules. Keeps no
/// more than which row shows what, so that a view never sees a row that the queue has already dropped. Main
/// thread only.
class KVQueueTableModel : public QAbstractListModel, public KVQueueTableView {
    Q_OBJECT

  public:
    enum Role {
        titleRole = Qt::DisplayRole,
        accessibleRole = Qt::AccessibleTextRole,
        mediaTypeRole = Qt::UserRole,
        isGroupRole,
        thumbnailsRole, ///< A list of compressed pictures, one for each of the first files; some are empty.
        statusRole,
        progressRole, ///< Invalid while there is none to show.
        stateRole,
        isSuccessfulRole,
        outcomeRole,    ///< A `KVRowOutcome::Kind`.
        hasDetailsRole, ///< Whether there is more to read about the outcome than the row shows.
        stopTitleRole,
        presetNameRole, ///< Of a group row: the preset that its conversions get.
    };

    explicit KVQueueTableModel(std::shared_ptr<KVConversionRowServices> services, QObject *parent = nullptr);
    ~KVQueueTableModel() override;

    KVQueueTableViewController &controller() { return _controller; }
    const KVQueueTableViewController &controller() const { return _controller; }
    /// The row's texts and actions; nothing for a group row.
    std::optional<KVConversionTableRow> tableRow(const QModelIndex &index) const;
    /// The rows among them, in the order of the table, without group rows.
    KVRowSelection selection(const QModelIndexList &indexes) const;
    KVMediaFileType mediaType(const QModelIndex &index) const;
    bool isGroup(const QModelIndex &index) const;
    bool isDragged(const QModelIndex &index) const;
    /// The preset choice of a group.
    KVPresetPopUpButton &presetPopUpButton(KVMediaFileType type) { return *_presetPopUpButtons.at(type); }
    /// How many of the rows above `row` are group rows.
    int groupRowsBefore(int row) const;

    /// Whether the stop buttons show what they do with the Option key down.
    void setIsOptionKeyDown(bool isDown);
    bool isOptionKeyDown() const { return _isOptionKeyDown; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    void insertTableRows(int first, int count) override;
    void removeTableRows(int first, int count) override;
    void reorderTableRows(int first, int count) override;
    void reloadData() override;
    void reloadRow(int row) override;
    void animateFinishedConversion(int row) override;
    void showDropZone(bool isAwaitingFiles) override;

  Q_SIGNALS:
    void dropZoneVisibilityChanged(bool isVisible);
    void conversionFinished(const QModelIndex &index);

  private:
    class Watcher;
    struct Row {
        KVMediaFileType group = KVMediaFileType::none;
        std::shared_ptr<KVConversion> conversion; ///< Null for a group row.
        bool operator==(const Row &) const = default;
    };

    Row _row(int number) const;
    /// Moves one row if that is all that has happened: the rows from `first` to `last` have turned by one
    /// place.
    bool _moveOneRow(const QList<Row> &rows, int first, int last);
    void _permute(const QList<Row> &rows);
    void _conversionChanged(const std::shared_ptr<KVConversion> &conversion);

    std::shared_ptr<KVConversionRowServices> _services;
    std::shared_ptr<Watcher> _watcher;
    std::map<KVMediaFileType, std::unique_ptr<KVPresetPopUpButton>> _presetPopUpButtons;
    QList<Row> _rows;
    KVNotificationCenter::Observation _thumbnailLoaded;
    bool _isOptionKeyDown = false;
    KVQueueTableViewController _controller;
};
