#pragma once

#include "presets/settings/KVOptionRoot.h"

#include <QSize>

#include <functional>

inline constexpr int KVSettingsViewDefaultWidth = 300; ///< Points.

/// The description of a preset's settings. A front end shows the visible options from the top, in order, and
/// walks them anew when it is told that they have changed. Main thread.
class KVSettingsBase {
  public:
    KVSettingsBase() = default;
    virtual ~KVSettingsBase() = default;
    KVSettingsBase(const KVSettingsBase &) = delete;
    KVSettingsBase &operator=(const KVSettingsBase &) = delete;

    /// The options to show now.
    virtual KVOptionList visibleOptions() const { return {}; }
    /// The size that shows them, in points.
    virtual QSize defaultViewSize() const { return {KVSettingsViewDefaultWidth, 128}; }

    /// Called after an option has shown or hidden others.
    void setVisibleOptionsObserver(std::function<void()> observer) { *_observer = std::move(observer); }

  protected:
    /// A call that tells the observer, as long as this pane lives: for the setters of options, which the pane
    /// owns and which a front end may keep longer.
    std::function<void()> _visibleOptionsNotifier() const;
    /// The default width, and the heights of the visible options with `gap` under each.
    QSize _sizeOfVisibleOptions(int gap) const;

  private:
    const std::shared_ptr<std::function<void()>> _observer = std::make_shared<std::function<void()>>();
};
