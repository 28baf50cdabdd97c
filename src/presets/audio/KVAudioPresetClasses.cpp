#include "presets/KVPresetClasses.h"
#include "presets/audio/KVAIFFPreset.h"
#include "presets/audio/KVAppleLosslessPreset.h"
#include "presets/audio/KVAudioPresets.h"
#include "presets/audio/KVWAVPreset.h"

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
