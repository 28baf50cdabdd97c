#pragma once

#include "presets/settings/KVOptionRoot.h"

#include <memory>

/// An option that edits a `Preset`, which it keeps alive.
template <class Preset>
class KVOptionBase : public KVOptionRoot {
  public:
    KVOptionBase(const QString &optionName, std::shared_ptr<Preset> edited)
        : KVOptionRoot(optionName)
        , editedObject(std::move(edited)) {}

    const std::shared_ptr<Preset> editedObject;
};
