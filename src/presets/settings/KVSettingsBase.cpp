#include "presets/settings/KVSettingsBase.h"

std::function<void()> KVSettingsBase::_visibleOptionsNotifier() const {
    return [observer = std::weak_ptr(_observer)] {
        const auto alive = observer.lock();
        if (alive && *alive) (*alive)();
    };
}

QSize KVSettingsBase::_sizeOfVisibleOptions(int gap) const {
    int height = 0;
    for (const auto &option : visibleOptions())
        height += option->optionHeight() + gap;
    return {KVSettingsViewDefaultWidth, height};
}
