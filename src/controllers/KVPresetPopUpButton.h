#pragma once

#include "kvcore/KVNotificationCenter.h"
#include "presets/KVPresetRegistry.h"

#include <functional>
#include <memory>
#include <vector>

/// The preset choice of one media type, without a widget: what the group row's pop-up shows and what a choice
/// does. Main thread only.
class KVPresetPopUpButton {
  public:
    explicit KVPresetPopUpButton(KVMediaFileType presetType);

    KVMediaFileType presetType() const { return _presetType; }
    std::shared_ptr<KVPreset> selectedPreset() const { return _selectedPreset; }
    const std::vector<KVPresetMenuItem> &items() const { return _items; }

    /// Makes it the preset of the queue and remembers it, unless a waiting conversion needs one that can
    /// stitch; then the user is told and nothing changes. True if it was taken.
    bool choosePreset(const std::shared_ptr<KVPreset> &preset);

    /// The queue's preset was changed elsewhere.
    void presetChangedRemotely();

    /// Told when the items or the selection changed.
    void setObserver(std::function<void()> observer) { _observer = std::move(observer); }

  private:
    void _fillInPresets();
    void _select(const std::shared_ptr<KVPreset> &preset);
    void _remember(const std::shared_ptr<KVPreset> &preset);

    const KVMediaFileType _presetType;
    std::shared_ptr<KVPreset> _selectedPreset;
    std::vector<KVPresetMenuItem> _items;
    std::function<void()> _observer;
    KVNotificationCenter::Observation _listDidChange;
    KVNotificationCenter::Observation _wasAffected;
};
