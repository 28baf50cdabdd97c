#pragma once

#include "presets/settings/KVSettingsBase.h"

#include <QWidget>

#include <memory>

/// Shows a preset's settings: a row for each visible option, built anew when an option shows or hides others.
/// Every change goes into the preset at once.
class KVPresetSettingsView : public QWidget {
    Q_OBJECT

  public:
    explicit KVPresetSettingsView(QWidget *parent = nullptr);
    ~KVPresetSettingsView() override;

    /// Null where the preset has nothing to edit; the view then says so.
    void setSettings(std::shared_ptr<KVSettingsBase> settings);

  private:
    void _rebuild();
    QWidget *_pane() const;

    std::shared_ptr<KVSettingsBase> _settings;
    QWidget *_shown = nullptr;
};
