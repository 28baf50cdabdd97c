#include "main_ui/main_window/refusals/KVRefusalsDialog.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVLook.h"
#include "platform/KVFileManager.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Of a disc's row: the URL of its VIDEO_TS folder.
constexpr int discRole = Qt::UserRole;
constexpr int updateDelay = 40; // ms
constexpr int rowPadding = 3;   // above and below the text

/// With "~" for the home folder.
QString shownFolder(const QUrl &url) {
    const QString folder = KVFileManager::deletingLastPathComponent(url).toLocalFile();
    const QString home = QDir::homePath();
    return folder == home || folder.startsWith(home + '/') ? '~' + folder.mid(home.size()) : folder;
}

QSize sizeOfRow() {
    return {0, QFontMetrics(QGuiApplication::font()).height() + 2 * rowPadding};
}

QTreeWidgetItem *rowFor(const QString &path, const QString &reason) {
    const QUrl url = QUrl::fromLocalFile(path);
    auto *row = new QTreeWidgetItem({KVFileManager::lastPathComponent(url), shownFolder(url), reason});
    row->setSizeHint(0, sizeOfRow());
    row->setToolTip(0, path);
    row->setToolTip(1, path);
    row->setToolTip(2, reason);
    return row;
}

} // namespace

KVRefusalsDialog::KVRefusalsDialog(std::shared_ptr<KVIntakeRefusals> refusals,
                                   std::function<void(const QUrl &)> addDisc, QWidget *parent)
    : QDialog(parent)
    , _refusals(std::move(refusals))
    , _addDisc(std::move(addDisc))
    , _list(new QTreeWidget) {
    setWindowTitle(KVLocalizationCenter::localized("Files That Were Not Added"));
    _list->setHeaderLabels({KVLocalizationCenter::localized("Name"),
                            KVLocalizationCenter::localized("Folder"),
                            KVLocalizationCenter::localized("Reason")});
    _list->setUniformRowHeights(true);
    _list->setTextElideMode(Qt::ElideMiddle);
    _list->setAlternatingRowColors(true);
    _list->setAccessibleName(windowTitle());
    _list->header()->resizeSection(0, 180);
    _list->header()->resizeSection(1, 150);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    KVLook::setButton(*buttons, QDialogButtonBox::Close, "Close");
    auto *copyButton =
        buttons->addButton(KVLocalizationCenter::localized("Copy"), QDialogButtonBox::ActionRole);
    _discButton =
        buttons->addButton(KVLocalizationCenter::localized("Add the Disc"), QDialogButtonBox::ActionRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(copyButton, &QPushButton::clicked, this, [this] { _copy(); });
    connect(_discButton, &QPushButton::clicked, this, [this] { _addSelectedDisc(); });
    connect(_list, &QTreeWidget::currentItemChanged, this, [this] { _updateButtons(); });

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(_list);
    layout->addWidget(buttons);
    resize(740, 360);
    _observation = KVNotificationCenter::defaultCenter().addObserver<KVIntakeRefusals>(
        IntakeRefusalsDidChange,
        [this](const auto &) {
            if (!_filling.isActive()) _filling.start(updateDelay);
        },
        _refusals);
    _filling.setSingleShot(true);
    connect(&_filling, &QTimer::timeout, this, [this] { _fill(); });
    _fill();
}

void KVRefusalsDialog::_fill() {
    _list->clear();
    QList<QTreeWidgetItem *> rows;
    for (const QUrl &disc : _refusals->discs()) {
        rows.append(rowFor(disc.toLocalFile(), KVLocalizationCenter::localized("This folder is a DVD.")));
        rows.last()->setData(0, discRole, disc);
    }
    for (const KVIntakeRefusal &refusal : _refusals->refusals())
        rows.append(rowFor(refusal.path, refusal.reason));
    if (!_refusals->skippedMembers().isEmpty()) {
        auto *group = new QTreeWidgetItem({_refusals->skippedText()});
        group->setSizeHint(0, sizeOfRow());
        for (const KVIntakeRefusal &refusal : _refusals->skippedMembers())
            group->addChild(rowFor(refusal.path, refusal.reason));
        group->setForeground(0, KVLook::secondaryText(palette()));
        rows.append(group);
    }
    _list->addTopLevelItems(rows);
    for (QTreeWidgetItem *row : rows)
        row->setFirstColumnSpanned(row->childCount() > 0);
    if (!rows.isEmpty()) _list->setCurrentItem(rows.first());
    _discButton->setVisible(!_refusals->discs().isEmpty());
    _updateButtons();
}

void KVRefusalsDialog::_updateButtons() {
    const QTreeWidgetItem *row = _list->currentItem();
    _discButton->setEnabled(row && row->data(0, discRole).isValid());
}

void KVRefusalsDialog::_addSelectedDisc() {
    const QTreeWidgetItem *row = _list->currentItem();
    if (!row) return;
    const QUrl disc = row->data(0, discRole).toUrl();
    _refusals->removeDisc(disc);
    _addDisc(disc);
    if (_refusals->isEmpty()) accept();
}

void KVRefusalsDialog::_copy() const {
    QGuiApplication::clipboard()->setText(_refusals->text());
}

void KVRefusalsDialog::done(int result) {
    _observation = {};
    QDialog::done(result);
    _refusals->clear();
}
