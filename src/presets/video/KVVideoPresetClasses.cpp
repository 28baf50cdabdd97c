#include "presets/KVPresetClasses.h"
#include "presets/video/other/KVCropPreset.h"
#include "presets/video/other/KVDVDPreset.h"
#include "presets/video/other/KVDivXPreset.h"
#include "presets/video/other/KVFLVPreset.h"
#include "presets/video/other/KVGIFAnimationPreset.h"
#include "presets/video/other/KVHEVCPreset.h"
#include "presets/video/other/KVMPEG1Preset.h"
#include "presets/video/other/KVMPEG2Preset.h"
#include "presets/video/other/KVProResPreset.h"
#include "presets/video/other/KVRemuxPreset.h"
#include "presets/video/other/KVTheoraPreset.h"
#include "presets/video/other/KVTransformPreset.h"
#include "presets/video/other/KVVideoRemuxPreset.h"
#include "presets/video/other/KVVolumeAdjustingPreset.h"
#include "presets/video/other/KVWMVPreset.h"
#include "presets/video/other/KVWebMPreset.h"
#include "presets/video/other/KVWebOptimization.h"
#include "presets/video/other/KVXboxPreset.h"
#include "presets/video/other/KVXvidPreset.h"
#include "presets/video/other/KViPhoneRingtonePreset.h"
#include "presets/video/variable_bitrate/KVDevicePresets.h"
#include "presets/video/variable_bitrate/KVHTTPLiveStreamingPreset.h"
#include "presets/video/variable_bitrate/KVMKVPreset.h"
#include "presets/video/variable_bitrate/KVMP4MPEG4BasedPreset.h"
#include "presets/video/variable_bitrate/KVPS3Preset.h"

std::vector<KVPresetClass> KVPresetClasses::videoPresetClasses() {
    using Class = KVPresetClass;
    return {
        Class::abstractClass<KVVideoPreset>("KVVideoPreset"),
        Class::abstractClass<KVSizeRestrictedVideoPreset>("KVSizeRestrictedVideoPreset"),
        Class::abstractClass<KViProductPreset>("KViProductPreset"),

        Class::concreteClass<KVMP4Preset>("KVMP4Preset"),
        Class::concreteClass<KVMP4MPEG4BasedPreset>("KVMP4MPEG4BasedPreset"),
        Class::concreteClass<KVMKVPreset>("KVMKVPreset"),
        Class::concreteClass<KVHEVCPreset>("KVHEVCPreset"),
        Class::concreteClass<KVProResPreset>("KVProResPreset"),
        Class::concreteClass<KVTheoraPreset>("KVTheoraPreset"),
        Class::concreteClass<KVWebMPreset>("KVWebMPreset"),
        Class::concreteClass<KVWMVPreset>("KVWMVPreset"),
        Class::concreteClass<KVFLVPreset>("KVFLVPreset"),
        Class::concreteClass<KVDivXPreset>("KVDivXPreset"),
        Class::concreteClass<KVXvidPreset>("KVXvidPreset"),
        Class::concreteClass<KVMPEG1Preset>("KVMPEG1Preset"),
        Class::concreteClass<KVMPEG2Preset>("KVMPEG2Preset"),
        Class::concreteClass<KVDVDPreset>("KVDVDPreset"),
        Class::concreteClass<KVPS3Preset>("KVPS3Preset"),
        Class::concreteClass<KVXboxPreset>("KVXboxPreset"),

        Class::concreteClass<KViPodPreset>("KViPodPreset"),
        Class::concreteClass<KViPodNanoPreset>("KViPodNanoPreset"),
        Class::concreteClass<KViPodNano5GPreset>("KViPodNano5GPreset"),
        Class::concreteClass<KViPhonePreset>("KViPhonePreset"),
        Class::concreteClass<KViPhone4Preset>("KViPhone4Preset"),
        Class::concreteClass<KViPhone5Preset>("KViPhone5Preset"),
        Class::concreteClass<KViPhone5SPreset>("KViPhone5SPreset"),
        Class::concreteClass<KViPhone5CPreset>("KViPhone5CPreset"),
        Class::concreteClass<KViPhoneSEPreset>("KViPhoneSEPreset"),
        Class::concreteClass<KViPhone6Preset>("KViPhone6Preset"),
        Class::concreteClass<KViPhone6SPreset>("KViPhone6SPreset"),
        Class::concreteClass<KViPhone7Preset>("KViPhone7Preset"),
        Class::concreteClass<KViPadPreset>("KViPadPreset"),
        Class::concreteClass<KViPad3Preset>("KViPad3Preset"),
        Class::concreteClass<KVAppleTVPreset>("KVAppleTVPreset"),
        Class::concreteClass<KVAppleTV2Preset>("KVAppleTV2Preset"),
        Class::concreteClass<KVAppleTV3Preset>("KVAppleTV3Preset"),
        Class::concreteClass<KVAppleTV4Preset>("KVAppleTV4Preset"),
        Class::concreteClass<KVAppleTV4KPreset>("KVAppleTV4KPreset"),
        Class::concreteClass<KVRokuPreset>("KVRokuPreset"),
        Class::concreteClass<KVPSPPreset>("KVPSPPreset"),

        Class::concreteClass<KVRemuxPreset>("KVRemuxPreset"),
        Class::concreteClass<KVVideoRemuxPreset>("KVVideoRemuxPreset"),
        Class::concreteClass<KVCropPreset>("KVCropPreset"),
        Class::concreteClass<KVTransformPreset>("KVTransformPreset"),
        Class::concreteClass<KVWebOptimization>("KVWebOptimization"),
        Class::concreteClass<KVHTTPLiveStreamingPreset>("KVHTTPLiveStreamingPreset"),
        Class::concreteClass<KVGIFAnimationPreset>("KVGIFAnimationPreset"),
        Class::concreteClass<KViPhoneRingtonePreset>("KViPhoneRingtonePreset"),
        Class::concreteClass<KVVolumeAdjustingPreset>("KVVolumeAdjustingPreset"),
    };
}
