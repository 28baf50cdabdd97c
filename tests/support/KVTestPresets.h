#pragma once

#include "presets/KVPreset.h"

#include <memory>

class KVOptionRoot;

/// Presets by class name, as they are after the user has changed some settings.
namespace KVTestPresets {

/// A built-in preset of the class; `settings` are in the form in which they are stored.
std::shared_ptr<KVPreset> make(const QString &className, const QVariantMap &settings = {});

/// As above, as the class that the test speaks to.
template <class Preset>
std::shared_ptr<Preset> make(const QString &className, const QVariantMap &settings = {}) {
    return std::dynamic_pointer_cast<Preset>(make(className, settings));
}

/// The labels of the options that the pane shows now.
QStringList labelsOf(const KVSettingsBase &pane);
/// The visible option of that label; a failure, and null, where there is none.
std::shared_ptr<KVOptionRoot> optionOf(const KVSettingsBase &pane, const QString &label);

/// What a conversion of the files to "/out/clip.EXT" runs.
QStringList argumentsOf(const KVPreset &preset, const KVMediaFileList &files);

} // namespace KVTestPresets
