#include "presets/KVPresetClasses.h"

std::vector<KVPresetClass> KVPresetClasses::videoPresetClasses() {
    return {};
}
