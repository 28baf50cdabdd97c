#include "main_ui/questions/KVWindowQuestions.h"

#include "kvcore/KVLocalizationCenter.h"
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

namespace {

QString nameFilter(const QStringList &extensions) {
    QStringList patterns;
    for (const QString &extension : extensions)
        patterns << "*." + extension << "*." + extension.toUpper();
    return patterns.join(' ');
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
    box.setEscapeButton(buttons.at(qBound(0, alert.buttonThatChangesNothing, int(buttons.size()) - 1)));

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
        if (auto *grid = qobject_cast<QGridLayout *>(box.layout()))
            grid->addWidget(choice, grid->rowCount() - 1, 0, 1, grid->columnCount());
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
    QFileDialog dialog(_window, panel.message);
    const bool onlyFolders = panel.canChooseFolders && !panel.canChooseFiles;
    dialog.setFileMode(onlyFolders                     ? QFileDialog::Directory
                       : panel.allowsMultipleSelection ? QFileDialog::ExistingFiles
                                                       : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::ShowDirsOnly, onlyFolders);
    dialog.setDirectoryUrl(panel.directory.value_or(_folder));
    if (!panel.allowedExtensions.isEmpty()) dialog.setNameFilter(nameFilter(panel.allowedExtensions));
    if (dialog.exec() != QDialog::Accepted) return {};
    _folder = dialog.directoryUrl();
    return dialog.selectedUrls();
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
