#include "main_ui/questions/KVWindowQuestions.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/questions/KVFilesAndFoldersDialog.h"
#include "platform/KVFileManager.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <memory>

namespace {

QString nameFilter(const QStringList &extensions) {
    QStringList patterns;
    for (const QString &extension : extensions)
        patterns << "*." + extension << "*." + extension.toUpper();
    return patterns.join(' ');
}

/// Puts the widget into a row of its own above the check box and the buttons.
void insertAboveButtons(QMessageBox &box, QWidget &widget) {
    auto *grid = qobject_cast<QGridLayout *>(box.layout());
    auto *buttons = box.findChild<QDialogButtonBox *>();
    if (!grid || !buttons) return;
    const int textColumn = grid->columnCount() - 1;
    if (box.checkBox()) grid->removeWidget(box.checkBox());
    grid->removeWidget(buttons);
    int row = grid->rowCount();
    grid->addWidget(&widget, row++, textColumn);
    if (box.checkBox()) grid->addWidget(box.checkBox(), row++, textColumn);
    grid->addWidget(buttons, row, 0, 1, grid->columnCount());
}

/// Qt's own dialog with our rules where files and folders can be chosen together.
std::unique_ptr<QFileDialog> dialogFor(const KVOpenPanel &panel, QWidget *parent) {
    if (panel.canChooseFiles && panel.canChooseFolders && panel.allowsMultipleSelection)
        return std::make_unique<KVFilesAndFoldersDialog>(parent);
    auto dialog = std::make_unique<QFileDialog>(parent, panel.message);
    const bool onlyFolders = panel.canChooseFolders && !panel.canChooseFiles;
    dialog->setFileMode(onlyFolders                     ? QFileDialog::Directory
                        : panel.allowsMultipleSelection ? QFileDialog::ExistingFiles
                                                        : QFileDialog::ExistingFile);
    dialog->setOption(QFileDialog::ShowDirsOnly, onlyFolders);
    return dialog;
}

} // namespace

KVWindowQuestions::KVWindowQuestions(QWidget *window)
    : _window(window)
    , _folder(QUrl::fromLocalFile(QDir::homePath())) {}

KVAlertResponse KVWindowQuestions::runAlert(const KVAlert &alert) {
    QMessageBox box(_window);
    box.setIcon(alert.buttons.size() > 1 ? QMessageBox::Question : QMessageBox::Information);
    box.setTextFormat(Qt::PlainText);
    box.setText(alert.messageText);
    box.setInformativeText(alert.informativeText);
    QList<QPushButton *> buttons;
    for (const QString &title : alert.buttons)
        buttons.append(
            box.addButton(title, buttons.isEmpty() ? QMessageBox::AcceptRole : QMessageBox::RejectRole));
    box.setDefaultButton(buttons.first());
    const int escape = alert.escapeButton.value_or(alert.buttonThatChangesNothing);
    box.setEscapeButton(buttons.at(qBound(0, escape, int(buttons.size()) - 1)));

    QCheckBox *suppression = nullptr;
    if (alert.suppressionTitle) {
        suppression = new QCheckBox(*alert.suppressionTitle, &box);
        box.setCheckBox(suppression);
    }
    QComboBox *choice = nullptr;
    if (!alert.accessoryItems.isEmpty()) {
        choice = new QComboBox(&box);
        choice->addItems(alert.accessoryItems);
        choice->setAccessibleName(alert.messageText);
        insertAboveButtons(box, *choice);
    }
    box.exec();

    KVAlertResponse response;
    const auto index = buttons.indexOf(box.clickedButton());
    response.returnCode = KVAlertResponse::firstButtonReturn + int(index < 0 ? buttons.size() - 1 : index);
    response.isSuppressed = suppression && suppression->isChecked();
    if (choice && choice->currentIndex() >= 0) response.accessoryIndex = choice->currentIndex();
    return response;
}

QList<QUrl> KVWindowQuestions::runOpenPanel(const KVOpenPanel &panel) {
    const auto dialog = dialogFor(panel, _window);
    dialog->setDirectoryUrl(panel.directory.value_or(_folder));
    if (!panel.allowedExtensions.isEmpty()) dialog->setNameFilter(nameFilter(panel.allowedExtensions));
    if (dialog->exec() != QDialog::Accepted) return {};
    _folder = dialog->directoryUrl();
    const auto *both = qobject_cast<const KVFilesAndFoldersDialog *>(dialog.get());
    return both ? both->chosenURLs() : dialog->selectedUrls();
}

std::optional<QUrl> KVWindowQuestions::runSavePanel(const KVSavePanel &panel) {
    QFileDialog dialog(_window, panel.message);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDirectoryUrl(panel.directory);
    dialog.selectFile(panel.proposedName);
    if (!panel.allowedExtensions.isEmpty()) {
        dialog.setNameFilter(nameFilter(panel.allowedExtensions));
        dialog.setDefaultSuffix(panel.allowedExtensions.first());
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedUrls().isEmpty()) return std::nullopt;
    return dialog.selectedUrls().first();
}

std::optional<QString> KVWindowQuestions::runTextPrompt(const KVTextPrompt &prompt) {
    QInputDialog dialog(_window);
    dialog.setLabelText(prompt.informativeText.isEmpty()
                            ? prompt.messageText
                            : prompt.messageText + "\n" + prompt.informativeText);
    dialog.setTextValue(prompt.defaultValue);
    if (auto *field = dialog.findChild<QLineEdit *>()) // names of files are long
        field->setMinimumWidth(field->fontMetrics().averageCharWidth() * 50);
    if (!prompt.buttons.isEmpty()) dialog.setOkButtonText(prompt.buttons.first());
    if (prompt.buttons.size() > 1) dialog.setCancelButtonText(prompt.buttons.at(1));
    for (QPushButton *button : dialog.findChildren<QPushButton *>())
        button->setIcon({});
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.textValue();
}
