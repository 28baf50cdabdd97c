#include "main_ui/options/KVPresetSettingsView.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVMainThread.h"
#include "main_ui/options/KVOptionRow.h"

#include <QFormLayout>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

KVPresetSettingsView::KVPresetSettingsView(QWidget *parent)
    : QWidget(parent) {
    (new QVBoxLayout(this))->setContentsMargins(0, 0, 0, 0);
    setMinimumWidth(KVSettingsViewDefaultWidth);
}

KVPresetSettingsView::~KVPresetSettingsView() {
    if (_settings) _settings->setVisibleOptionsObserver({});
}

void KVPresetSettingsView::setSettings(std::shared_ptr<KVSettingsBase> settings) {
    if (_settings) _settings->setVisibleOptionsObserver({});
    _settings = std::move(settings);
    _rebuild();
    if (!_settings) return;
    // Later: the control that has just changed is one of those that go.
    _settings->setVisibleOptionsObserver([view = QPointer(this)] {
        KVMainThread::async([view] {
            if (view) view->_rebuild();
        });
    });
}

void KVPresetSettingsView::_rebuild() {
    delete _shown;
    _shown = _pane();
    layout()->addWidget(_shown);
}

QWidget *KVPresetSettingsView::_pane() const {
    if (!_settings) {
        auto *label = new QLabel(KVLocalizationCenter::localized("This preset has no settings."));
        label->setAlignment(Qt::AlignCenter);
        return label;
    }
    auto *pane = new QWidget;
    auto *form = new QFormLayout(pane);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const auto &option : _settings->visibleOptions()) {
        auto *row = new KVOptionRow(option);
        if (row->labelText().isEmpty())
            form->addRow(row);
        else
            form->addRow(row->labelText(), row);
    }
    return pane;
}
