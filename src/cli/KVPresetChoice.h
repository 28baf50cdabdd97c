#pragma once

#include "presets/KVPreset.h"

#include <tl/expected.hpp>

/// The preset that a command line names, with its changes for this run.
namespace KVPresetChoice {

/// `changes` are "KEY=VALUE" texts. With changes the answer is a preset of its own, which no list holds and
/// which is never saved. What is wrong comes as one sentence.
tl::expected<std::shared_ptr<KVPreset>, QString> make(const QString &name, const QStringList &changes);

/// True if the preset can convert files of this type.
bool canConvert(const KVPreset &preset, KVMediaFileType type);

} // namespace KVPresetChoice
