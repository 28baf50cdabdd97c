#pragma once

#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

class KVXboxPreset : public KVTabulatedVideoPreset<KVVideoPresetTable::xbox> {};
