#pragma once

#include "presets/KVPreset.h"

#include <QDialog>

#include <memory>

/// The settings of one preset in a window of its own. They are saved when it closes.
class KVPresetSettingsWindow : public QDialog {
    Q_OBJECT

  public:
    explicit KVPresetSettingsWindow(std::shared_ptr<KVPreset> preset, QWidget *parent = nullptr);

    void done(int result) override;

  private:
    std::shared_ptr<KVPreset> _preset;
};
