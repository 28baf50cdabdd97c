#include "main_ui/KVWhatsNewWindowController.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVLook.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

void KVWhatsNewWindowController::runModal(QWidget *parent) {
    const auto localized = [](const char *key) { return KVLocalizationCenter::localized(key); };
    QDialog dialog(parent);
    dialog.setWindowTitle(localized("Release Notes"));

    auto *icon = new QLabel;
    icon->setPixmap(
        QIcon(QStringLiteral(":/icons/kalvora.svg")).pixmap(QSize(64, 64), dialog.devicePixelRatioF()));
    auto *title = new QLabel(localized("Welcome to Kalvora"));
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    font.setBold(true);
    title->setFont(font);
    auto *notes = new QLabel(
        localized("\u2022 Drop videos, sound files, pictures, folders or a DVD folder on the window.\n"
                  "\u2022 Pick a preset for each kind of file, then press Start.\n"
                  "\u2022 Click a row's picture for everything that the row can do.\n"
                  "\u2022 Drop a row on another to make one file of both.\n"
                  "\u2022 Your files are never overwritten."));
    notes->setWordWrap(true);
    notes->setMinimumWidth(360);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    KVLook::setButton(*buttons, QDialogButtonBox::Ok, "OK");
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);

    auto *layout = new QVBoxLayout(&dialog);
    layout->setSpacing(12);
    layout->setContentsMargins(24, 24, 24, 18);
    layout->addWidget(icon);
    layout->addWidget(title);
    layout->addWidget(notes);
    layout->addWidget(buttons);
    dialog.exec();
}
