#include "presets/KVPresetClasses.h"

std::vector<KVPresetClass> KVPresetClasses::picturePresetClasses() {
    return {};
}
