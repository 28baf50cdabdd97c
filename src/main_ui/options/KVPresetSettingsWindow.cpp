#include "main_ui/options/KVPresetSettingsWindow.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVLook.h"
#include "main_ui/options/KVPresetSettingsView.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

KVPresetSettingsWindow::KVPresetSettingsWindow(std::shared_ptr<KVPreset> preset, QWidget *parent)
    : QDialog(parent)
    , _preset(std::move(preset)) {
    setWindowTitle(KVLocalizationCenter::localized("Preset Settings"));
    auto *title = new QLabel(_preset->name);
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    title->setFont(font);
    auto *view = new KVPresetSettingsView;
    view->setSettings(_preset->settings());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    KVLook::setButton(*buttons, QDialogButtonBox::Close, "Close");
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(14);
    layout->addWidget(title);
    layout->addWidget(view);
    layout->addStretch();
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetMinimumSize);
}

void KVPresetSettingsWindow::done(int result) {
    _preset->save();
    QDialog::done(result);
}
