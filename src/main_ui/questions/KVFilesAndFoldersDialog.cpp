#include "main_ui/questions/KVFilesAndFoldersDialog.h"

#include "kvcore/KVLocalizationCenter.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStandardPaths>

#include <algorithm>

KVFilesAndFoldersDialog::KVFilesAndFoldersDialog(QWidget *parent)
    : QFileDialog(parent) {
    setOption(QFileDialog::DontUseNativeDialog);
    setFileMode(QFileDialog::ExistingFiles);
    setWindowTitle(KVLocalizationCenter::localized("Add Files and Folders"));
    setLabelText(QFileDialog::Accept, KVLocalizationCenter::localized("Add"));
    QList<QUrl> places;
    for (const auto place :
         {QStandardPaths::HomeLocation, QStandardPaths::DownloadLocation, QStandardPaths::MusicLocation,
          QStandardPaths::PicturesLocation, QStandardPaths::MoviesLocation})
        if (const QString folder = QStandardPaths::writableLocation(place);
            QFileInfo(folder).isDir() && !places.contains(QUrl::fromLocalFile(folder)))
            places.append(QUrl::fromLocalFile(folder));
    setSidebarUrls(places);

    // Both views share the selection. Qt disables the button for a folder; this comes after Qt's own slot.
    const auto *view = findChild<QListView *>(QStringLiteral("listView"));
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &KVFilesAndFoldersDialog::_enableOpenButton);
    connect(findChild<QLineEdit *>(), &QLineEdit::textChanged, this,
            &KVFilesAndFoldersDialog::_enableOpenButton);
}

QStringList KVFilesAndFoldersDialog::_selectedPaths() const {
    const auto *view = findChild<QListView *>(QStringLiteral("listView"));
    QStringList paths;
    for (const QModelIndex &index : view->selectionModel()->selectedRows())
        paths.append(index.data(QFileSystemModel::FilePathRole).toString());
    return paths;
}

bool KVFilesAndFoldersDialog::_isFolderSelected() const {
    return std::ranges::any_of(_selectedPaths(), [](const QString &path) { return QFileInfo(path).isDir(); });
}

void KVFilesAndFoldersDialog::_enableOpenButton() {
    if (!_isFolderSelected()) return;
    auto *button = findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open);
    button->setEnabled(true);
    button->setText(labelText(QFileDialog::Accept));
}

void KVFilesAndFoldersDialog::accept() {
    // What is typed is for Qt: it enters a folder and checks names.
    const bool isTyped = findChild<QLineEdit *>()->isModified();
    if (isTyped || !_isFolderSelected()) {
        QFileDialog::accept();
        if (result() == QDialog::Accepted) _chosenURLs = selectedUrls();
        return;
    }
    for (const QString &path : _selectedPaths())
        _chosenURLs.append(QUrl::fromLocalFile(path));
    done(QDialog::Accepted);
}
