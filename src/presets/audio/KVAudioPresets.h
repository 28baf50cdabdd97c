#pragma once

#include "presets/audio/KVAudioPresetTable.h"
#include "presets/audio/base/KVBitrateAudioPreset.h"
#include "presets/audio/base/KVTabulatedAudioPreset.h"

// The audio presets that differ by their lines of the table alone.
// clang-format off
using KVAACPreset  = KVTabulatedAudioPreset<KVBitrateAudioPreset, KVAudioPresetTable::aac>;
using KVM4APreset  = KVTabulatedAudioPreset<KVAACPreset,          KVAudioPresetTable::m4a>;
using KVMP2Preset  = KVTabulatedAudioPreset<KVBitrateAudioPreset, KVAudioPresetTable::mp2>;
using KVMP3Preset  = KVTabulatedAudioPreset<KVBitrateAudioPreset, KVAudioPresetTable::mp3>;
using KVVobPreset  = KVTabulatedAudioPreset<KVBitrateAudioPreset, KVAudioPresetTable::vorbis>;
using KVWMAPreset  = KVTabulatedAudioPreset<KVBitrateAudioPreset, KVAudioPresetTable::wma>;
using KVFLACPreset = KVTabulatedAudioPreset<KVAudioPreset,        KVAudioPresetTable::flac>;
// clang-format on
