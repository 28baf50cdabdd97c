#pragma once

#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

class KVTheoraPreset : public KVTabulatedVideoPreset<KVVideoPresetTable::theora> {};
