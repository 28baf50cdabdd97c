#pragma once

#include <QFileDialog>

/// An open panel in which files and folders can be selected together: a double-click enters a folder, the
/// Open button takes it. Qt's own dialog, since no desktop's offers this.
class KVFilesAndFoldersDialog : public QFileDialog {
    Q_OBJECT

  public:
    explicit KVFilesAndFoldersDialog(QWidget *parent);

    /// What the user selected, valid after the dialog was accepted.
    const QList<QUrl> &chosenURLs() const { return _chosenURLs; }

    void accept() override;

  private:
    QStringList _selectedPaths() const;
    bool _isFolderSelected() const;
    void _enableOpenButton();

    QList<QUrl> _chosenURLs;
};
