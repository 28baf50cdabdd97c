#pragma once

#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

class KVMPEG1Preset : public KVTabulatedVideoPreset<KVVideoPresetTable::mpeg1> {};
