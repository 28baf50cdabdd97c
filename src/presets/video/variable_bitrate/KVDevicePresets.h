#pragma once

#include "presets/video/variable_bitrate/KVDevicePreset.h"
#include "presets/video/variable_bitrate/KVPSPPreset.h"
#include "presets/video/variable_bitrate/KViPhonePreset.h"

// The devices that differ by figures alone.
// clang-format off
using KViPodPreset       = KVDevicePreset<KViProductPreset, KVDeviceTable::iPod>;
using KViPodNanoPreset   = KVDevicePreset<KViProductPreset, KVDeviceTable::iPodNano>;
using KViPodNano5GPreset = KVDevicePreset<KViProductPreset, KVDeviceTable::iPodNano5G>;
using KViPhone4Preset    = KVDevicePreset<KViProductPreset, KVDeviceTable::iPhone4>;
using KViPhone5Preset    = KVDevicePreset<KViPhone4Preset,  KVDeviceTable::iPhone5>;
using KViPhone5SPreset   = KVDevicePreset<KViPhone5Preset,  KVDeviceTable::iPhone5S>;
using KViPhone5CPreset   = KVDevicePreset<KViPhone5SPreset, KVDeviceTable::iPhone5C>;
using KViPhoneSEPreset   = KVDevicePreset<KViPhone5SPreset, KVDeviceTable::iPhoneSE>;
using KViPhone6Preset    = KVDevicePreset<KViProductPreset, KVDeviceTable::iPhone6>;
using KViPhone6SPreset   = KVDevicePreset<KViPhone6Preset,  KVDeviceTable::iPhone6S>;
using KViPhone7Preset    = KVDevicePreset<KViPhone6Preset,  KVDeviceTable::iPhone7>;
using KViPadPreset       = KVDevicePreset<KViProductPreset, KVDeviceTable::iPad>;
using KVAppleTVPreset    = KVDevicePreset<KViProductPreset, KVDeviceTable::appleTV>;
using KVAppleTV2Preset   = KVDevicePreset<KViProductPreset, KVDeviceTable::appleTV2>;
using KVAppleTV3Preset   = KVDevicePreset<KViProductPreset, KVDeviceTable::appleTV3>;
using KVAppleTV4Preset   = KVDevicePreset<KViProductPreset, KVDeviceTable::appleTV4>;
using KVAppleTV4KPreset  = KVDevicePreset<KViProductPreset, KVDeviceTable::appleTV4K>;
using KViPad3Preset      = KVDevicePreset<KVAppleTV3Preset, KVDeviceTable::iPad3>;
using KVRokuPreset       = KVDevicePreset<KViProductPreset, KVDeviceTable::roku>;
// clang-format on
