#include "presets/KVPresetClasses.h"
#include "presets/audio/KVAACPreset.h"
#include "presets/audio/KVAIFFPreset.h"
#include "presets/audio/KVAppleLosslessPreset.h"
#include "presets/audio/KVFLACPreset.h"
#include "presets/audio/KVM4APreset.h"
#include "presets/audio/KVMP2Preset.h"
#include "presets/audio/KVMP3Preset.h"
#include "presets/audio/KVVobPreset.h"
#include "presets/audio/KVWAVPreset.h"
#include "presets/audio/KVWMAPreset.h"

std::vector<KVPresetClass> KVPresetClasses::audioPresetClasses() {
    using Row = KVPresetClass;
    return {
        Row::abstractClass<KVAudioPreset>("KVAudioPreset"),
        Row::abstractClass<KVBitrateAudioPreset>("KVBitrateAudioPreset"),
        Row::concreteClass<KVAACPreset>("KVAACPreset"),
        Row::concreteClass<KVM4APreset>("KVM4APreset"),
        Row::concreteClass<KVMP2Preset>("KVMP2Preset"),
        Row::concreteClass<KVMP3Preset>("KVMP3Preset"),
        Row::concreteClass<KVVobPreset>("KVVobPreset"),
        Row::concreteClass<KVWMAPreset>("KVWMAPreset"),
        Row::concreteClass<KVFLACPreset>("KVFLACPreset"),
        Row::concreteClass<KVWAVPreset>("KVWAVPreset"),
        Row::concreteClass<KVAIFFPreset>("KVAIFFPreset"),
        Row::concreteClass<KVAppleLosslessPreset>("KVAppleLosslessPreset"),
    };
}
