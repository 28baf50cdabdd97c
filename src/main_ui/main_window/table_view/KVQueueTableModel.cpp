#include "main_ui/main_window/table_view/KVQueueTableModel.h"

#include "kvcore/KVLocalizationCenter.h"

#include <QHash>

#include <algorithm>

namespace {

constexpr int mostThumbnails = 3; // in one row

QVariantList thumbnailsOf(const KVConversion &conversion) {
    QVariantList thumbnails;
    for (const auto &file :
         conversion.mediaFiles().first(std::min<qsizetype>(mostThumbnails, conversion.mediaFiles().size())))
        thumbnails.append(file->thumbnail);
    return thumbnails;
}

} // namespace

/// Follows every conversion of the table; the conversions hold it weakly.
class KVQueueTableModel::Watcher : public KVConversionDelegate {
  public:
    using Conversion = std::shared_ptr<KVConversion>;

    explicit Watcher(KVQueueTableModel &model)
        : _model(model) {}

    void conversionDidChangePreset(const Conversion &conversion) override { _tell(conversion); }
    void conversionDidUpdateFiles(const Conversion &conversion) override { _tell(conversion); }
    void conversionDidFinishExecuting(const Conversion &conversion) override { _tell(conversion); }
    void conversionWillStartExecuting(const Conversion &conversion) override { _tell(conversion); }
    void conversionDidPause(const Conversion &conversion) override { _tell(conversion); }
    void conversionDidResume(const Conversion &conversion) override { _tell(conversion); }
    void conversionDidReachProgress(const Conversion &conversion, double) override { _tell(conversion); }

  private:
    void _tell(const Conversion &conversion) { _model._conversionChanged(conversion); }

    KVQueueTableModel &_model;
};

KVQueueTableModel::KVQueueTableModel(std::shared_ptr<KVConversionRowServices> services, QObject *parent)
    : QAbstractListModel(parent)
    , _services(std::move(services))
    , _watcher(std::make_shared<Watcher>(*this))
    , _controller(*this) {
    _thumbnailLoaded = KVNotificationCenter::defaultCenter().addObserver<KVMediaFile>(
        KVMediaFileDidLoadThumbnail, [this](const auto &file) {
            const auto shows = [&](const Row &row) {
                return row.conversion && row.conversion->mediaFiles().contains(file);
            };
            if (const auto row = std::ranges::find_if(_rows, shows); row != _rows.end())
                _conversionChanged(row->conversion);
        });
    for (const KVMediaFileType type : KVQueueTableViewController::groupOrder) {
        auto &button = _presetPopUpButtons[type];
        button = std::make_unique<KVPresetPopUpButton>(type);
        button->setObserver([this, type] {
            if (const auto [row, length] = _controller.rangeOfRows(type); length > 0) reloadRow(row);
        });
    }
    reloadData();
}

KVQueueTableModel::~KVQueueTableModel() = default;

std::optional<KVConversionTableRow> KVQueueTableModel::tableRow(const QModelIndex &index) const {
    const auto conversion = index.isValid() ? _rows.at(index.row()).conversion : nullptr;
    if (!conversion) return std::nullopt;
    return KVConversionTableRow(conversion, _services);
}

KVRowSelection KVQueueTableModel::selection(const QModelIndexList &indexes) const {
    QList<int> numbers;
    for (const QModelIndex &index : indexes)
        if (index.isValid() && !isGroup(index)) numbers += index.row();
    std::ranges::sort(numbers);
    KVRowSelection::List conversions;
    for (const int number : numbers)
        conversions += _rows.at(number).conversion;
    return {conversions, _services};
}

KVMediaFileType KVQueueTableModel::mediaType(const QModelIndex &index) const {
    return index.isValid() ? _rows.at(index.row()).group : KVMediaFileType::none;
}

bool KVQueueTableModel::isGroup(const QModelIndex &index) const {
    return index.isValid() && !_rows.at(index.row()).conversion;
}

int KVQueueTableModel::groupRowsBefore(int row) const {
    int groups = 0;
    // Rows of a group stand together, so the end of each group is found by halving.
    for (auto group = _rows.begin(); group != _rows.end() && group - _rows.begin() < row; ++groups)
        group = std::partition_point(group, _rows.end(),
                                     [type = group->group](const Row &other) { return other.group == type; });
    return groups;
}

void KVQueueTableModel::setIsOptionKeyDown(bool isDown) {
    if (_isOptionKeyDown == isDown) return;
    _isOptionKeyDown = isDown;
    if (!_rows.isEmpty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1), {stopTitleRole});
}

int KVQueueTableModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(_rows.size());
}

QVariant KVQueueTableModel::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Row &row = _rows.at(index.row());
    if (role == mediaTypeRole) return int(row.group);
    if (role == isGroupRole) return !row.conversion;
    if (!row.conversion) {
        if (role == presetNameRole) return _presetPopUpButtons.at(row.group)->selectedPreset()->name;
        const bool isText = role == titleRole || role == accessibleRole;
        return isText ? KVMediaFileTypes::localizedName(row.group) : QVariant();
    }

    const KVConversionTableRow tableRow(row.conversion, _services);
    switch (role) {
    case titleRole:
        return tableRow.title();
    case Qt::ToolTipRole:
        return tableRow.toolTip();
    case accessibleRole:
        return tableRow.accessibleText();
    case Qt::AccessibleDescriptionRole:
        return KVLocalizationCenter::localized("Preview image. Interact for menu.");
    case thumbnailsRole:
        return thumbnailsOf(*row.conversion);
    case statusRole:
        return tableRow.statusText();
    case progressRole: {
        const auto progress = tableRow.progress();
        return progress ? QVariant(*progress) : QVariant();
    }
    case stateRole:
        return int(row.conversion->state.load());
    case isSuccessfulRole:
        return tableRow.outcome().isSuccess();
    case outcomeRole:
        return int(tableRow.outcome().kind);
    case hasDetailsRole:
        return tableRow.outcome().hasDetails();
    case stopTitleRole:
        return tableRow.stopButtonTitle(_isOptionKeyDown);
    default:
        return {};
    }
}

bool KVQueueTableModel::isDragged(const QModelIndex &index) const {
    return index.isValid() &&
           (index.row() == draggedRow || draggedConversions.contains(_rows.at(index.row()).conversion));
}

Qt::ItemFlags KVQueueTableModel::flags(const QModelIndex &index) const {
    if (!index.isValid()) return Qt::ItemIsDropEnabled;
    const Qt::ItemFlags always = Qt::ItemIsEnabled | Qt::ItemIsDropEnabled;
    return isGroup(index) ? always : always | Qt::ItemIsDragEnabled | Qt::ItemIsSelectable;
}

void KVQueueTableModel::insertTableRows(int first, int count) {
    beginInsertRows({}, first, first + count - 1);
    for (int number = first; number < first + count; ++number)
        _rows.insert(number, _row(number));
    endInsertRows();
}

void KVQueueTableModel::removeTableRows(int first, int count) {
    beginRemoveRows({}, first, first + count - 1);
    _rows.remove(first, count);
    endRemoveRows();
}

void KVQueueTableModel::reorderTableRows(int first, int count) {
    QList<Row> rows = _rows;
    for (int number = first; number < first + count; ++number)
        rows[number] = _row(number);
    int firstChanged = first;
    int lastChanged = first + count - 1;
    while (firstChanged <= lastChanged && rows.at(firstChanged) == _rows.at(firstChanged))
        ++firstChanged;
    while (lastChanged > firstChanged && rows.at(lastChanged) == _rows.at(lastChanged))
        --lastChanged;
    if (firstChanged >= lastChanged) return;
    if (!_moveOneRow(rows, firstChanged, lastChanged)) _permute(rows);
    Q_EMIT dataChanged(index(firstChanged), index(lastChanged));
}

bool KVQueueTableModel::_moveOneRow(const QList<Row> &rows, int first, int last) {
    const auto moved = [&](int from, int to) {
        QList<Row> result = _rows;
        result.move(from, to);
        if (result != rows) return false;
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        _rows = rows;
        endMoveRows();
        return true;
    };
    return moved(first, last) || moved(last, first);
}

void KVQueueTableModel::_permute(const QList<Row> &rows) {
    Q_EMIT layoutAboutToBeChanged();
    QHash<std::shared_ptr<KVConversion>, int> numbers;
    for (int number = 0; number < rows.size(); ++number)
        numbers.insert(rows.at(number).conversion, number);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex &index : before) {
        const auto conversion = _rows.at(index.row()).conversion;
        after += conversion ? this->index(numbers.value(conversion)) : index;
    }
    _rows = rows;
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

void KVQueueTableModel::reloadData() {
    beginResetModel();
    _rows.clear();
    for (int number = 0; number < _controller.numberOfRows(); ++number)
        _rows.append(_row(number));
    endResetModel();
}

void KVQueueTableModel::reloadRow(int row) {
    if (row >= 0 && row < _rows.size()) Q_EMIT dataChanged(index(row), index(row));
}

void KVQueueTableModel::animateFinishedConversion(int row) {
    reloadRow(row);
    Q_EMIT conversionFinished(index(row));
}

void KVQueueTableModel::showDropZone(bool isAwaitingFiles) {
    Q_EMIT dropZoneVisibilityChanged(isAwaitingFiles);
}

KVQueueTableModel::Row KVQueueTableModel::_row(int number) const {
    const auto conversion = _controller.conversion(number);
    if (conversion && !conversion->delegates().contains(_watcher)) conversion->delegates().append(_watcher);
    return {_controller.mediaType(number), conversion};
}

void KVQueueTableModel::_conversionChanged(const std::shared_ptr<KVConversion> &conversion) {
    const auto row = std::ranges::find(_rows, conversion, &Row::conversion);
    if (row != _rows.end()) reloadRow(int(row - _rows.begin()));
}
